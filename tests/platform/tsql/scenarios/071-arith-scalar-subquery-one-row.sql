-- A scalar subquery with one row gives its value.
-- run
CREATE TABLE t (n INT)
-- run
INSERT INTO t VALUES (41)
-- run
SELECT (SELECT n FROM t) + 1
-- expect
rowset
row 42
end
