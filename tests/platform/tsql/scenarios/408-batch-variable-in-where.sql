-- A variable compared in a WHERE clause.
-- run
CREATE TABLE t (id INT, n INT, nombre VARCHAR(20))
-- run
INSERT INTO t VALUES (1, 0, 'Ana') INSERT INTO t VALUES (2, 5, 'José') INSERT INTO t VALUES (3, 7, 'Eva') INSERT INTO t VALUES (4, 7, 'jose')
-- run
DECLARE @n INT = 7 SELECT id FROM t WHERE n = @n ORDER BY id
-- expect
rowset
row 3
row 4
end
-- run
DECLARE @nombre VARCHAR(20) = 'JOSE' SELECT COUNT(*) FROM t WHERE nombre = @nombre
-- expect
rowset
row 2
end
