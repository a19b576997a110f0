-- TOP n PERCENT answers that share of the rows, rounded up.
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
SELECT TOP 50 PERCENT id FROM t ORDER BY id
-- expect
rowset
row 1
row 2
end
-- run
SELECT TOP 30 PERCENT id FROM t ORDER BY id
-- expect
rowset
row 1
row 2
end
