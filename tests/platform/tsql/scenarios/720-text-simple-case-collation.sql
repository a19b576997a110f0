-- CASE x WHEN y compares x = y as = does: under the database collation (case and accents
-- aside, trailing blanks ignored) and with a text beside an integer read as an integer (a word
-- is error 245); literals, columns, variables and expressions alike. NULLIF(a, b) and the
-- condition of IIF compare the same way.
-- run
SELECT CASE 'a ' WHEN 'A' THEN 1 ELSE 0 END, CASE N'Ávila' WHEN 'avila' THEN 'sí' ELSE 'no' END, CASE 'b' WHEN 'a' THEN 1 WHEN 'B ' THEN 2 END, CASE NULL WHEN NULL THEN 1 ELSE 0 END
-- expect
rowset
row 1|sí|2|0
end
-- run
CREATE TABLE clientes (id INT, nombre VARCHAR(20), codigo VARCHAR(5))
-- run
INSERT INTO clientes VALUES (1, 'José', '10')
INSERT INTO clientes VALUES (2, 'MARIA ', ' 7')
INSERT INTO clientes VALUES (3, 'ana', 'x')
-- run
SELECT id, CASE nombre WHEN 'jose' THEN 'J' WHEN 'maría' THEN 'M' ELSE '-' END, CASE LEFT(nombre, 4) WHEN 'JOSE' THEN 1 ELSE 0 END FROM clientes ORDER BY id
-- expect
rowset
row 1|J|1
row 2|M|0
row 3|-|0
end
-- run
DECLARE @buscado VARCHAR(10)
SET @buscado = 'ANA  '
SELECT id FROM clientes WHERE CASE nombre WHEN @buscado THEN 1 ELSE 0 END = 1
-- expect
rowset
row 3
end
-- run
SELECT id, CASE codigo WHEN 10 THEN 'diez' WHEN 7 THEN 'siete' ELSE 'otro' END, CASE 7 WHEN codigo THEN 1 ELSE 0 END FROM clientes WHERE id < 3 ORDER BY id
-- expect
rowset
row 1|diez|0
row 2|siete|1
end
-- run
SELECT CASE codigo WHEN 10 THEN 1 ELSE 0 END FROM clientes
-- expect
error 245
-- run
SELECT CASE 'palabra' WHEN 1 THEN 1 ELSE 0 END
-- expect
error 245
-- run
SELECT id, NULLIF(nombre, 'maria'), NULLIF(codigo, 10), IIF(codigo = 7, 'sí', 'no'), IIF(nombre = 'JOSE', 1, 0) FROM clientes WHERE id < 3 ORDER BY id
-- expect
rowset
row 1|José|NULL|no|1
row 2|NULL| 7|sí|0
end
-- run
SELECT NULLIF('a ', 'A'), NULLIF('b', 'a'), IIF('á' = 'A', 1, 0), NULLIF(3, '3')
-- expect
rowset
row NULL|b|1|NULL
end
