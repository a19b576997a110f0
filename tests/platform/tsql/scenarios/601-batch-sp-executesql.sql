-- sp_executesql runs a text whose parameters are variables of their declared types: values by
-- name or by position, OUTPUT parameters coming back into the caller's variables. The text and
-- the definition must be national texts (214); a parameter without a value is 8178, OUTPUT
-- asked of a parameter declared without it 8162.
-- run
CREATE TABLE cliente (id INT, nombre VARCHAR(20), saldo DECIMAL(10,2))
-- run
INSERT INTO cliente VALUES (1, 'Ana', 10.5)
INSERT INTO cliente VALUES (2, 'Luis', 20)
INSERT INTO cliente VALUES (5, 'Eva', 7.25)
-- run
EXEC sp_executesql N'SELECT nombre FROM cliente WHERE id = @id', N'@id INT', @id = 5
-- expect
rowset
row Eva
end
-- run
EXECUTE sp_executesql N'SELECT id FROM cliente WHERE saldo > @minimo AND nombre <> @fuera ORDER BY id',
  N'@minimo DECIMAL(10,2), @fuera VARCHAR(10)', 7.5, 'Luis'
-- expect
rowset
row 1
end
-- run
DECLARE @nombre VARCHAR(20), @total DECIMAL(10,2), @id INT = 2
EXEC sp_executesql N'SELECT @n = nombre FROM cliente WHERE id = @id SELECT @t = SUM(saldo) FROM cliente',
  N'@id INT, @n VARCHAR(20) OUTPUT, @t DECIMAL(10,2) OUTPUT', @id = @id, @n = @nombre OUTPUT,
  @t = @total OUTPUT
SELECT @nombre, @total
-- expect
rowset
row Luis|37.75
end
-- run
DECLARE @texto NVARCHAR(100) = N'UPDATE cliente SET saldo = saldo + @mas WHERE id < @hasta'
EXEC sp_executesql @texto, N'@mas MONEY, @hasta INT', @hasta = 3, @mas = 1
SELECT @@ROWCOUNT, SUM(saldo) FROM cliente
-- expect
count 2
rowset
row 2|39.75
end
-- run
DECLARE @corto VARCHAR(3)
EXEC sp_executesql N'SET @s = ''abcdef''', N'@s VARCHAR(6) OUTPUT', @s = @corto OUTPUT
SELECT @corto
-- expect
rowset
row abc
end
-- run
EXEC sp_executesql N'SELECT 1'
-- expect
rowset
row 1
end
-- run
EXEC sp_executesql 'SELECT 1'
-- expect
error 214
-- run
EXEC sp_executesql N'SELECT @a + @b', N'@a INT, @b INT', @a = 1
-- expect
error 8178
-- run
DECLARE @x INT
EXEC sp_executesql N'SET @a = 1', N'@a INT', @a = @x OUTPUT
-- expect
error 8162
-- run
EXEC sp_executesql N'SELECT @otra', N'@a INT', @a = 1
-- expect
error 137
-- run
EXEC sp_executesql N'SELECT @a', N'@a INT', 1, 2
-- expect
error 8144
-- run
EXEC sp_executesql N'SELECT @a', N'@a INT', @b = 1
-- expect
error 8145
-- run
DECLARE @queda INT = 1
EXEC sp_executesql N'SET @a = @a + 1 SELECT @a', N'@a INT OUTPUT', @a = @queda
SELECT @queda
-- expect
rowset
row 2
end
rowset
row 1
end
-- run
EXEC sp_executesql N'SELECT @s, @n + 1, @d + 1', N'@s VARCHAR(40), @n INT, @d DATETIME',
  'O''Neill''; DROP TABLE cliente --', '12', '15/03/2024'
SELECT COUNT(*) FROM cliente
-- expect
rowset
row O'Neill'; DROP TABLE cliente --|13|2024-03-16 00:00:00
end
rowset
row 3
end
