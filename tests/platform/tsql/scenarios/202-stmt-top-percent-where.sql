-- TOP n PERCENT counts the rows that the WHERE picks, and rounds their share up.
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
SELECT TOP 50 PERCENT id FROM t WHERE n > 0 ORDER BY id DESC
-- expect
rowset
row 4
row 3
end
-- run
SELECT TOP 100 PERCENT id FROM t WHERE n = 7 ORDER BY id
-- expect
rowset
row 3
row 4
end
-- run
SELECT TOP 10 PERCENT id FROM t WHERE n > 100
-- expect
rowset
end
