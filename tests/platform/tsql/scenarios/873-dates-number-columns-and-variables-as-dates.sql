-- A FLOAT, DECIMAL or INT column or variable cast or converted to DATETIME or SMALLDATETIME is the
-- date that many days after 1900-01-01, its fraction the time of day (rounded to DATETIME's
-- 1/300 seconds; before 1900 the days are negative). The difference of two DATETIME values is
-- a DATETIME counted from 1900-01-01: cast to FLOAT or DECIMAL it is the days between them.
-- run
CREATE TABLE Plazos (id INT, dias FLOAT, exacto DECIMAL(10, 2), enteros INT, desde DATETIME, hasta DATETIME)
-- run
INSERT INTO Plazos VALUES (1, 45364.75, 1.5, 2, '15/03/2024', '16/03/2024 12:00')
INSERT INTO Plazos VALUES (2, -0.25, 0, 0, '16/03/2024 06:00', '15/03/2024')
-- run
SELECT id, CAST(dias AS DATETIME), CAST(exacto AS DATETIME), CAST(enteros AS SMALLDATETIME), CONVERT(DATETIME, dias), CONVERT(SMALLDATETIME, exacto)
FROM Plazos ORDER BY id
-- expect
rowset
row 1|2024-03-15 18:00:00|1900-01-02 12:00:00|1900-01-03 00:00:00|2024-03-15 18:00:00|1900-01-02 12:00:00
row 2|1899-12-31 18:00:00|1900-01-01 00:00:00|1900-01-01 00:00:00|1899-12-31 18:00:00|1900-01-01 00:00:00
end
-- run
DECLARE @f FLOAT = 0.5
DECLARE @d DECIMAL(10, 4) = 45366.25
DECLARE @x FLOAT = 0.000001
SELECT CAST(@f AS DATETIME), CONVERT(DATETIME, @d), CONVERT(VARCHAR(23), CAST(@x AS DATETIME), 121)
-- expect
rowset
row 1900-01-01 12:00:00|2024-03-17 06:00:00|1900-01-01 00:00:00.087
end
-- run
SELECT id, CAST(hasta - desde AS FLOAT), CONVERT(DECIMAL(10, 2), hasta - desde), CAST(hasta - '15/03/2024' AS FLOAT)
FROM Plazos ORDER BY id
-- expect
rowset
row 1|1.5|1.5|1.5
row 2|-1.25|-1.25|0
end
-- run
SELECT CAST(CAST('16/03/2024 12:00' AS DATETIME) - CAST('15/03/2024' AS DATETIME) AS FLOAT)
-- expect
rowset
row 1.5
end
