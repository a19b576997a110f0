-- EXEC of a text runs it as a batch of its own: its rowsets and counts are the caller's,
-- @@ROWCOUNT after it is its last statement's, the caller's variables are unknown inside it
-- (137 when it runs, after what came before it), #temporary tables of the connection are
-- visible, and a text that does not compile fails when it runs.
-- run
CREATE TABLE t (id INT, nombre VARCHAR(20))
-- run
EXEC('INSERT INTO t VALUES (1, ''uno'') INSERT INTO t VALUES (2, ''dos'')')
-- expect
count 1
count 1
-- run
DECLARE @tabla VARCHAR(10) = 't', @id VARCHAR(5) = '2'
EXECUTE ('SELECT nombre FROM ' + @tabla + ' WHERE id = ' + @id)
SELECT @@ROWCOUNT
-- expect
rowset
row dos
end
rowset
row 1
end
-- run
DECLARE @sql NVARCHAR(200) = N'UPDATE t SET nombre = ''otro'' WHERE id > 0'
EXEC (@sql)
SELECT @@ROWCOUNT
-- expect
count 2
rowset
row 2
end
-- run
DECLARE @n INT = 5
INSERT INTO t VALUES (3, 'tres')
EXEC('SELECT @n')
-- expect
error 137
-- run
SELECT COUNT(*) FROM t
-- expect
rowset
row 3
end
-- run
DECLARE @nada VARCHAR(10)
EXEC(@nada)
EXEC('DECLARE @x INT = 4 SELECT @x * 2 AS doble')
-- expect
rowset
row 8
end
-- run
CREATE TABLE #temporal (v INT)
-- run
INSERT INTO #temporal VALUES (7)
EXEC('SELECT v FROM #temporal')
-- expect
count 1
rowset
row 7
end
-- run
DROP TABLE #temporal
-- run
DELETE FROM t WHERE id = 3
EXEC('SELECT 1 +')
-- expect
error 102
-- run
SELECT COUNT(*) FROM t
-- expect
rowset
row 2
end
-- run
EXEC('CREATE TABLE hecha (n INT)')
-- run
INSERT INTO hecha VALUES (1)
SELECT n FROM hecha
-- expect
count 1
rowset
row 1
end
