-- A BIT column stores 1 for any number but 0.
-- run
CREATE TABLE t (id INT, b BIT)
-- run
INSERT INTO t VALUES (1, 1)
-- run
INSERT INTO t VALUES (2, 0)
-- run
INSERT INTO t VALUES (3, 5)
-- run
SELECT b FROM t ORDER BY id
-- expect
rowset
row True
row False
row True
end
