-- SUM of an integer column is an integer.
-- run
CREATE TABLE t (n INT)
-- run
INSERT INTO t VALUES (3)
-- run
INSERT INTO t VALUES (4)
-- run
SELECT SUM(n) / 2 FROM t
-- expect
rowset
row 3
end
