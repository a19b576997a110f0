-- CAST and CONVERT to VARCHAR(MAX) and NVARCHAR(MAX) keep the whole value with its trailing
-- blanks, write numbers as a CAST to VARCHAR(n) writes them (a DECIMAL with its scale, MONEY
-- with two places) and dates in CONVERT's style; the text compares under the database
-- collation, and DATALENGTH counts a byte a character, two for NVARCHAR(MAX).
-- run
SELECT CAST('abc  ' AS VARCHAR(MAX)) + '|', LEN(CAST(REPLICATE('x', 50) AS VARCHAR(MAX))), DATALENGTH(CAST('ab ' AS VARCHAR(MAX))), DATALENGTH(CAST('ab ' AS NVARCHAR(MAX))), CONVERT(NVARCHAR(MAX), '  x ') + '|'
-- expect
rowset
row abc  ||50|3|6|  x |
end
-- run
SELECT CAST(12.50 AS VARCHAR(MAX)), CAST(1234567 AS NVARCHAR(MAX)), CAST(CAST(1.5 AS MONEY) AS NVARCHAR(MAX)), CAST(0.1E0 AS VARCHAR(MAX)), CONVERT(VARCHAR(MAX), 2.50), CONVERT(VARCHAR(MAX), CAST('20240115' AS DATETIME), 103)
-- expect
rowset
row 12.50|1234567|1.50|0.1|2.50|15/01/2024
end
-- run
SELECT CASE WHEN CAST('a ' AS VARCHAR(MAX)) = 'Á' THEN 1 ELSE 0 END, CASE WHEN CONVERT(NVARCHAR(MAX), 'Niño') = 'NINO' THEN 1 ELSE 0 END, CASE WHEN CAST('a ' AS VARCHAR(10)) = 'A' THEN 1 ELSE 0 END
-- expect
rowset
row 1|0|1
end
-- run
CREATE TABLE fichas (id INT, nombre VARCHAR(20), importe DECIMAL(8,3))
-- run
INSERT INTO fichas VALUES (1, 'José ', 2.5)
INSERT INTO fichas VALUES (2, 'Ana', 10)
-- run
SELECT id, CAST(nombre AS NVARCHAR(MAX)) + '|', CAST(importe AS VARCHAR(MAX)) FROM fichas WHERE CAST(nombre AS VARCHAR(MAX)) IN ('jose', 'ANA') ORDER BY id
-- expect
rowset
row 1|José ||2.500
row 2|Ana||10.000
end
