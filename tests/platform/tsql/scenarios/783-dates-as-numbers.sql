-- A DATETIME or SMALLDATETIME cast to FLOAT, REAL, DECIMAL or NUMERIC is its days since
-- 1900-01-01 with the fraction of its day (18:00 is .75; before 1900 the days are negative and
-- the fraction still counts forward); a number cast to DATETIME is the date that many days after
-- 1900-01-01, its fraction the time of day. DATE takes no such conversion (529).
-- run
CREATE TABLE Turnos (id INT, inicio DATETIME, corto SMALLDATETIME, dia DATE)
-- run
INSERT INTO Turnos VALUES (1, '15/03/2024 18:00', '15/03/2024 06:00', '15/03/2024')
INSERT INTO Turnos VALUES (2, '01/01/1900 12:00', '02/01/1900', '01/01/1900')
INSERT INTO Turnos VALUES (3, '31/12/1899 18:00', '01/01/1900 00:00', '31/12/1899')
-- run
SELECT id, CAST(inicio AS FLOAT), CONVERT(REAL, corto), CAST(inicio AS DECIMAL(10, 2)) FROM Turnos ORDER BY id
-- expect
rowset
row 1|45364.75|45364.25|45364.75
row 2|0.5|1|0.5
row 3|-0.25|0|-0.25
end
-- run
SELECT CAST(CAST('20240315 18:00' AS DATETIME) AS FLOAT) - CAST(inicio AS FLOAT) FROM Turnos WHERE id = 1
-- expect
rowset
row 0
end
-- run
SELECT CAST(45364.75 AS DATETIME), CONVERT(DATETIME, 0.5), CAST(45000 AS SMALLDATETIME), CAST(45364 AS DATETIME)
-- expect
rowset
row 2024-03-15 18:00:00|1900-01-01 12:00:00|2023-03-17 00:00:00|2024-03-15 00:00:00
end
-- run
SELECT CAST(dia AS FLOAT) FROM Turnos
-- expect
error 529
