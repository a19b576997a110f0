-- CAST and CONVERT to a date type in a SELECT's list read back as dates of that type, not as
-- texts: a TIME on day 0 (1899-12-30), a DATE at midnight; grouped, sorted and DISTINCT by them.
-- run
SELECT CAST('14:30' AS TIME), CONVERT(TIME(0), '15/03/2024 08:05:09.7'), CAST('15/03/2024 10:20:40' AS SMALLDATETIME) AS corto
-- expect
rowset
row 1899-12-30 14:30:00|1899-12-30 08:05:10|2024-03-15 10:21:00
end
-- run
CREATE TABLE Visitas (id INT, momento DATETIME, texto VARCHAR(20))
-- run
INSERT INTO Visitas VALUES (1, '15/03/2024 18:45', '16/03/2024')
INSERT INTO Visitas VALUES (2, '15/03/2024 09:10', '16/03/2024')
INSERT INTO Visitas VALUES (3, '17/03/2024 11:00:30', '16/03/2024')
-- run
SELECT id, CAST(momento AS TIME(0)) hora, CONVERT(DATE, texto, 103) AS dia FROM Visitas ORDER BY id
-- expect
rowset
row 1|1899-12-30 18:45:00|2024-03-16 00:00:00
row 2|1899-12-30 09:10:00|2024-03-16 00:00:00
row 3|1899-12-30 11:00:30|2024-03-16 00:00:00
end
-- run
SELECT CAST(momento AS DATE) AS dia, COUNT(*) FROM Visitas GROUP BY CAST(momento AS DATE) ORDER BY dia
-- expect
rowset
row 2024-03-15 00:00:00|2
row 2024-03-17 00:00:00|1
end
-- run
SELECT DISTINCT CONVERT(DATE, momento) FROM Visitas ORDER BY 1 DESC
-- expect
rowset
row 2024-03-17 00:00:00
row 2024-03-15 00:00:00
end
-- run
SELECT CAST(MAX(momento) AS SMALLDATETIME), CONVERT(TIME, MIN(momento)) FROM Visitas
-- expect
rowset
row 2024-03-17 11:01:00|1899-12-30 09:10:00
end
