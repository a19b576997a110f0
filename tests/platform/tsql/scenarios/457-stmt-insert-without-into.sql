-- INSERT without INTO stores as INSERT INTO does.
-- run
CREATE TABLE t (id INT, nombre VARCHAR(10))
-- run
INSERT t VALUES (1, 'uno')
INSERT t (id, nombre) SELECT id + 1, 'dos' FROM t
-- run
SELECT id, nombre FROM t ORDER BY id
-- expect
rowset
row 1|uno
row 2|dos
end
