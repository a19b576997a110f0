-- An INSERT without a column list gives its values to the columns after the identity, which
-- numbers the rows itself, whether the values come from VALUES or from a SELECT.
-- run
CREATE TABLE t (id INT IDENTITY(1,1) PRIMARY KEY, nombre VARCHAR(10), n INT)
-- run
INSERT INTO t VALUES ('uno', 1)
SELECT @@IDENTITY
-- expect
count 1
rowset
row 1
end
-- run
INSERT INTO t SELECT nombre + 'x', n + 1 FROM t
-- run
SELECT id, nombre, n FROM t ORDER BY id
-- expect
rowset
row 1|uno|1
row 2|unox|2
end
