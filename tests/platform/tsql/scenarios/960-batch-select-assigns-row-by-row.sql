-- A SELECT that assigns variables over rows takes the rows one by one, in the order asked: a
-- value naming a variable the statement assigns sees what the rows before left in it (lists
-- joined with ISNULL, CONCAT or a separator, running totals and counts), later assignments of
-- a row see the earlier ones, a NULL in `+` makes the text NULL, the variable's type cuts the
-- text, and without rows the variables keep their values.
-- run
CREATE TABLE ciudades (id INT, nombre VARCHAR(20), habitantes INT, superficie DECIMAL(8,2))
INSERT INTO ciudades VALUES (1, 'Sevilla', 690000, 140.80)
INSERT INTO ciudades VALUES (2, 'Almería', 200000, 296.21)
INSERT INTO ciudades VALUES (3, 'Cádiz', 115000, 12.10)
INSERT INTO ciudades VALUES (4, NULL, 1000, 1.00)
-- run
DECLARE @lista VARCHAR(100)
SELECT @lista = ISNULL(@lista + ', ', '') + nombre FROM ciudades WHERE nombre IS NOT NULL ORDER BY nombre
SELECT @lista, @@ROWCOUNT
-- expect
rowset
row Almería, Cádiz, Sevilla|3
end
-- run
DECLARE @lista VARCHAR(100) = ''
SELECT @lista = @lista + nombre + ';' FROM ciudades ORDER BY id
SELECT @lista
-- expect
rowset
row NULL
end
-- run
DECLARE @lista VARCHAR(100)
SELECT @lista = CONCAT(@lista, nombre, '|') FROM ciudades ORDER BY id
SELECT @lista
-- expect
rowset
row Sevilla|Almería|Cádiz||
end
-- run
DECLARE @total INT = 0, @superficie DECIMAL(10,2) = 0, @filas INT = 0
SELECT @total = @total + habitantes, @superficie = @superficie + superficie, @filas = @filas + 1 FROM ciudades
SELECT @total, @superficie, @filas
-- expect
rowset
row 1006000|450.11|4
end
-- run
DECLARE @a INT = 0, @b INT = 0, @ultima VARCHAR(20)
SELECT @a = @a + 1, @b = @b + @a, @ultima = nombre FROM ciudades WHERE nombre IS NOT NULL ORDER BY id
SELECT @a, @b, @ultima
-- expect
rowset
row 3|6|Cádiz
end
-- run
DECLARE @corta VARCHAR(10) = '', @mayores VARCHAR(50) = ''
SELECT @corta = @corta + nombre FROM ciudades WHERE id <= 2 ORDER BY id
SELECT TOP 2 @mayores = @mayores + UPPER(nombre) + '/' FROM ciudades ORDER BY habitantes DESC
SELECT @corta, @mayores
-- expect
rowset
row SevillaAlm|SEVILLA/ALMERÍA/
end
-- run
DECLARE @lista VARCHAR(10) = 'x', @n INT = 5
SELECT @lista = @lista + nombre, @n = @n + 1 FROM ciudades WHERE id > 10
SELECT @lista, @n, @@ROWCOUNT
-- expect
rowset
row x|5|0
end
