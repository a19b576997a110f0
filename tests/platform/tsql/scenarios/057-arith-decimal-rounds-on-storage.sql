-- A DECIMAL(p,s) column rounds the stored value to its scale.
-- run
CREATE TABLE t (n DECIMAL(5,2))
-- run
INSERT INTO t VALUES (1.235)
-- run
INSERT INTO t VALUES (1.234)
-- run
SELECT n FROM t ORDER BY n
-- expect
rowset
row 1.23
row 1.24
end
