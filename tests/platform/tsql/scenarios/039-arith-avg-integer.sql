-- AVG of an integer column is an integer.
-- run
CREATE TABLE t (n INT)
-- run
INSERT INTO t VALUES (1)
-- run
INSERT INTO t VALUES (2)
-- run
INSERT INTO t VALUES (4)
-- run
SELECT AVG(n), SUM(n) FROM t
-- expect
rowset
row 2|7
end
