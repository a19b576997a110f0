-- CAST and CONVERT to DATE drop the time, from a text (under DATEFORMAT or the style), a
-- DATETIME or a text column; a DATE's own text 'yyyy-mm-dd' reads year, month, day under
-- DATEFORMAT dmy too, where a DATETIME reads year, day, month.
-- run
SELECT CAST(CAST('15/03/2024 18:45' AS DATETIME) AS DATE), CAST('15/03/2024 18:45' AS DATE)
-- expect
rowset
row 2024-03-15 00:00:00|2024-03-15 00:00:00
end
-- run
SELECT CONVERT(DATE, '03/15/2024', 101), CONVERT(DATE, '15.03.2024 10:00', 104), CAST('2024-03-15' AS DATE)
-- expect
rowset
row 2024-03-15 00:00:00|2024-03-15 00:00:00|2024-03-15 00:00:00
end
-- run
CREATE TABLE Pagos (fecha DATETIME, texto VARCHAR(20))
-- run
INSERT INTO Pagos VALUES ('15/03/2024 18:45', '2024-03-16 08:00')
-- run
SELECT CAST(fecha AS DATE), CONVERT(DATE, fecha), CONVERT(DATE, texto, 120) FROM Pagos
-- expect
rowset
row 2024-03-15 00:00:00|2024-03-15 00:00:00|2024-03-16 00:00:00
end
-- run
SELECT COUNT(*) FROM Pagos WHERE CAST(fecha AS DATE) = '15/03/2024'
-- expect
rowset
row 1
end
-- run
SELECT CONVERT(VARCHAR(10), CAST(fecha AS DATE), 103) + ' ' + CONVERT(VARCHAR(8), fecha, 108) FROM Pagos
-- expect
rowset
row 15/03/2024 18:45:00
end
