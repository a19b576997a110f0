-- DELETE TOP (n) removes n rows.
-- run
CREATE TABLE t (id INT, n INT)
-- run
INSERT INTO t VALUES (1, 0)
-- run
INSERT INTO t VALUES (2, 5)
-- run
INSERT INTO t VALUES (3, 7)
-- run
INSERT INTO t VALUES (4, 7)
-- run
DELETE TOP (1) FROM t
-- expect
count 1
-- run
SELECT COUNT(*) FROM t
-- expect
rowset
row 3
end
