-- A NULL text sorts before the empty text.
-- run
CREATE TABLE t (id INT, s VARCHAR(10))
-- run
INSERT INTO t VALUES (1, 'b')
-- run
INSERT INTO t VALUES (2, '')
-- run
INSERT INTO t VALUES (3, NULL)
-- run
SELECT id FROM t ORDER BY s
-- expect
rowset
row 3
row 2
row 1
end
