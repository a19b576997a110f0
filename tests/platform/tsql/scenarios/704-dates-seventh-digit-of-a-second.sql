-- DATETIME2 and TIME without digits (and DATETIME2(7), TIME(7)) keep seven digits of a second,
-- 100-nanosecond units: stored, compared, cast, written by CONVERT style 121 and counted by
-- DATEPART(ns).
-- gap postgres: the engine keeps six digits of a second; a value with a seventh that is not 0 is refused, naming it (0x80040E14, séptimo dígito de segundo)
-- run
CREATE TABLE Medidas (id INT, momento DATETIME2, hora TIME(7))
-- run
INSERT INTO Medidas VALUES (1, '15/03/2024 10:20:30.1234567', '10:20:30.7654321')
INSERT INTO Medidas VALUES (2, '15/03/2024 10:20:30.1234561', '10:20:30.7654329')
-- run
SELECT CONVERT(VARCHAR(27), momento, 121), DATEPART(ns, momento), DATEPART(ns, hora), DATEPART(mcs, hora)
FROM Medidas ORDER BY momento
-- expect
rowset
row 2024-03-15 10:20:30.1234561|123456100|765432900|765432
row 2024-03-15 10:20:30.1234567|123456700|765432100|765432
end
-- run
SELECT id FROM Medidas WHERE momento > '15/03/2024 10:20:30.1234561'
-- expect
rowset
row 1
end
-- run
SELECT id FROM Medidas WHERE hora = '10:20:30.7654329'
-- expect
rowset
row 2
end
-- run
DECLARE @m DATETIME2 = '15/03/2024 10:20:30.1234567'
SELECT CONVERT(VARCHAR(27), @m, 121), CONVERT(VARCHAR(27), CAST(@m AS DATETIME2(6)), 121), COUNT(*) FROM Medidas WHERE momento = @m
-- expect
rowset
row 2024-03-15 10:20:30.1234567|2024-03-15 10:20:30.123457|1
end
-- run
SELECT CONVERT(VARCHAR(27), CAST('15/03/2024 10:20:30.9999999' AS DATETIME2), 121), COUNT(DISTINCT momento) FROM Medidas
-- expect
rowset
row 2024-03-15 10:20:30.9999999|2
end
