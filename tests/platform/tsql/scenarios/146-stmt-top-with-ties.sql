-- TOP n WITH TIES adds the rows tied with the last one.
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
SELECT TOP 3 WITH TIES n FROM t ORDER BY n
-- expect
rowset
row 0
row 5
row 7
row 7
end
