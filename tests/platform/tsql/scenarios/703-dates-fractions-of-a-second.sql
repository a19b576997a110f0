-- DATETIME2(n) and TIME(n) keep n digits of a second, rounded half up from more; CONVERT style 121
-- writes a DATETIME2's n digits (seven when none are given) where a DATETIME writes three, and
-- DATEPART counts microseconds (mcs) and nanoseconds (ns). SYSDATETIME() is a DATETIME2(7) of now.
-- run
CREATE TABLE Medidas (id INT, momento DATETIME2, hora TIME, corto DATETIME2(4), segundo DATETIME2(0), viejo DATETIME)
-- run
INSERT INTO Medidas VALUES (1, '15/03/2024 10:20:30.123456', '10:20:30.654321', '15/03/2024 10:20:30.12345', '15/03/2024 10:20:30.5', '15/03/2024 10:20:30.123')
-- run
SELECT CONVERT(VARCHAR(27), momento, 121), CONVERT(VARCHAR(27), corto, 121), CONVERT(VARCHAR(27), segundo, 121), CONVERT(VARCHAR(27), viejo, 121)
FROM Medidas
-- expect
rowset
row 2024-03-15 10:20:30.1234560|2024-03-15 10:20:30.1235|2024-03-15 10:20:31|2024-03-15 10:20:30.123
end
-- run
SELECT DATEPART(mcs, momento), DATEPART(ns, momento), DATEPART(microsecond, hora), DATEPART(nanosecond, hora), DATEPART(ms, hora)
FROM Medidas
-- expect
rowset
row 123456|123456000|654321|654321000|654
end
-- run
SELECT CONVERT(VARCHAR(27), CAST(momento AS DATETIME2(5)), 121), CONVERT(VARCHAR(27), CAST('15/03/2024 10:20:30.99999' AS DATETIME2(2)), 121), CONVERT(VARCHAR(27), CAST('10:20:30.123456' AS DATETIME2(6)), 121)
FROM Medidas
-- expect
rowset
row 2024-03-15 10:20:30.12346|2024-03-15 10:20:31.00|1900-01-01 10:20:30.123456
end
-- run
SELECT id FROM Medidas WHERE momento = '15/03/2024 10:20:30.123456' AND hora > '10:20:30.65432'
-- expect
rowset
row 1
end
-- run
SELECT CASE WHEN ABS(DATEDIFF(second, SYSDATETIME(), GETDATE())) <= 1 THEN 1 ELSE 0 END
-- expect
rowset
row 1
end
-- run
SELECT SYSDATETIME() + 1
-- expect
error 206
