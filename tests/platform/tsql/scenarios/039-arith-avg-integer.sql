-- AVG of an integer column is an integer.
-- gap sqlite: SELECT AVG(n), SUM(n) FROM t answers row 2.33333333333333|7, not row 2|7
-- gap postgres: SELECT AVG(n), SUM(n) FROM t answers row 2.3333333333333333|7, not row 2|7
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
