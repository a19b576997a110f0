-- A number cast to a text type is written as SQL Server writes it: a DECIMAL literal or column
-- with its scale, MONEY with two places, a FLOAT with six significant digits and a three-digit
-- exponent past them; a CHAR(n) is padded to n. A text too short for the number is '*' for an
-- integer to CHAR or VARCHAR and error 8115 for the others (and for an integer to NVARCHAR).
-- run
CREATE TABLE importes (id INT, precio DECIMAL(10,3), tarifa MONEY, peso FLOAT, unidades INT)
-- run
INSERT INTO importes VALUES (1, 12.5, 1234.5678, 1234567.0, 123456)
INSERT INTO importes VALUES (2, -0.25, 0.5, 0.00001, 7)
-- run
SELECT CAST(precio AS VARCHAR(12)), CAST(tarifa AS VARCHAR(12)), CAST(peso AS VARCHAR(20)), CONVERT(NVARCHAR(10), precio * 2) FROM importes ORDER BY id
-- expect
rowset
row 12.500|1234.57|1.23457e+006|25.000
row -0.250|0.50|1e-005|-0.500
end
-- run
SELECT CAST(12.50 AS VARCHAR(10)), CAST(1.5E0 AS VARCHAR(10)) + '|', CAST('ab' AS CHAR(5)) + '|', CAST(12 AS CHAR(4)) + '|', DATALENGTH(CAST(1.5 AS CHAR(6)))
-- expect
rowset
row 12.50|1.5||ab   ||12  ||6
end
-- run
SELECT CAST(unidades AS VARCHAR(3)), CAST(unidades AS CHAR(2)) + '|' FROM importes ORDER BY id
-- expect
rowset
row *|* |
row 7|7 |
end
-- run
SELECT CAST(precio AS VARCHAR(5)) FROM importes WHERE id = 1
-- expect
error 8115
-- run
SELECT CAST(unidades AS NVARCHAR(3)) FROM importes WHERE id = 1
-- expect
error 8115
