-- DATEADD answers a value of its date's type. A DATETIME2(n) or TIME(n) keeps its n digits of a
-- second whatever the unit added; a DATETIME keeps .000/.003/.007 (what is added is rounded to
-- them) and a SMALLDATETIME the minute. A text literal's value is a DATETIME.
-- run
CREATE TABLE Turnos (id INT, inicio DATETIME2(6), fin DATETIME2, hora TIME(5), alta DATETIME, corto SMALLDATETIME)
-- run
INSERT INTO Turnos VALUES (1, '15/03/2024 10:20:30.123456', '15/03/2024 10:20:30.1234560', '23:20:30.12345', '15/03/2024 10:20:30.997', '15/03/2024 10:20')
-- run
SELECT CONVERT(VARCHAR(26), DATEADD(day, 1, inicio), 121), CONVERT(VARCHAR(27), DATEADD(ms, 5, fin), 121),
       CAST(DATEADD(hour, 2, hora) AS VARCHAR(16)), CONVERT(VARCHAR(23), DATEADD(ms, 2, alta), 121),
       CONVERT(VARCHAR(23), DATEADD(second, 40, corto), 121)
FROM Turnos
-- expect
rowset
row 2024-03-16 10:20:30.123456|2024-03-15 10:20:30.1284560|01:20:30.12345|2024-03-15 10:20:31.000|2024-03-15 10:21:00.000
end
-- run
DECLARE @m DATETIME2(4) = '15/03/2024 23:59:59.9876'
DECLARE @t TIME(6) = '10:20:30.654321'
SELECT CONVERT(VARCHAR(24), DATEADD(minute, 1, @m), 121), CAST(DATEADD(second, -31, @t) AS VARCHAR(16)),
       CONVERT(VARCHAR(23), DATEADD(ms, 2, '15/03/2024 10:20:30'), 121),
       CONVERT(VARCHAR(23), DATEADD(ms, -3, CAST('16/03/2024' AS DATETIME)), 121)
-- expect
rowset
row 2024-03-16 00:00:59.9876|10:19:59.654321|2024-03-15 10:20:30.003|2024-03-15 23:59:59.997
end
-- run
SELECT COUNT(*) FROM Turnos WHERE DATEADD(day, -1, DATEADD(day, 1, inicio)) = inicio AND DATEADD(year, 1, fin) > '15/03/2025 10:20:30.123455'
-- expect
rowset
row 1
end
