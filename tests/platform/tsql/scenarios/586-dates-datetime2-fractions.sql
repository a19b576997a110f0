-- DATETIME2 keeps its digits of a second without DATETIME's .003 steps (DATETIME2(0) rounds to
-- the second) and starts in year 1.
-- run
CREATE TABLE Registro (id INT, momento DATETIME2, corto DATETIME2(0), alta DATETIME2(3), viejo DATETIME)
-- run
INSERT INTO Registro VALUES (1, '15/03/2024 10:20:30.001', '15/03/2024 10:20:30.5', '0001-01-01 00:00:00.001', '15/03/2024 10:20:30.001')
-- run
SELECT CONVERT(VARCHAR(23), momento, 121), corto, CONVERT(VARCHAR(23), alta, 121), CONVERT(VARCHAR(23), viejo, 121)
FROM Registro
-- expect
rowset
row 2024-03-15 10:20:30.001|2024-03-15 10:20:31|0001-01-01 00:00:00.001|2024-03-15 10:20:30.000
end
-- run
SELECT CONVERT(VARCHAR(23), CAST('15/03/2024 10:20:30.123456' AS DATETIME2), 121), CAST('0001-01-01' AS DATETIME2)
-- expect
rowset
row 2024-03-15 10:20:30.123|0001-01-01 00:00:00
end
-- run
SELECT YEAR(alta), CONVERT(VARCHAR(10), DATEADD(year, 2023, alta), 120) FROM Registro
-- expect
rowset
row 1|2024-01-01
end
-- run
SELECT momento + 1 FROM Registro
-- expect
error 206
