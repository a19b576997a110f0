-- A DATE column keeps the day alone, whatever time the stored value had (a text, a DATETIME
-- column's value through UPDATE or INSERT ... SELECT), and reads back as that day (as a DATETIME,
-- at midnight).
-- run
CREATE TABLE Citas (id INT, dia DATE, alta DATETIME)
-- run
INSERT INTO Citas VALUES (1, '15/03/2024 10:20:30', '15/03/2024 10:20:30')
INSERT INTO Citas VALUES (2, '20240316', '16/03/2024 23:59:59')
INSERT INTO Citas (id, dia) SELECT 3, alta FROM Citas WHERE id = 2
UPDATE Citas SET dia = alta WHERE id = 1
-- run
SELECT id, dia, DATEPART(hour, CAST(dia AS DATETIME)), DATEPART(minute, CAST(dia AS DATETIME)), CONVERT(VARCHAR(10), dia, 103)
FROM Citas ORDER BY id
-- expect
rowset
row 1|2024-03-15 00:00:00|0|0|15/03/2024
row 2|2024-03-16 00:00:00|0|0|16/03/2024
row 3|2024-03-16 00:00:00|0|0|16/03/2024
end
-- run
SELECT COUNT(*) FROM Citas WHERE dia = alta
-- expect
rowset
row 0
end
