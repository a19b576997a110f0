-- SELECT @v = column over several rows leaves the value of the last row.
-- run
CREATE TABLE t (id INT, nombre VARCHAR(10))
-- run
INSERT INTO t VALUES (1, 'uno') INSERT INTO t VALUES (2, 'dos') INSERT INTO t VALUES (3, 'tres')
-- run
DECLARE @v VARCHAR(10) SELECT @v = nombre FROM t ORDER BY id SELECT @v
-- expect
rowset
row tres
end
