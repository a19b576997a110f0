-- TOP n WITH TIES ranks the rows its WHERE keeps by its ORDER BY, under the column's collation;
-- without ORDER BY it is error 1062.
-- run
CREATE TABLE t (id INT, g VARCHAR(10), n INT)
-- run
INSERT INTO t VALUES (1, 'a', 9)
INSERT INTO t VALUES (2, 'B', 9)
INSERT INTO t VALUES (3, 'b', 8)
INSERT INTO t VALUES (4, 'c', 8)
INSERT INTO t VALUES (5, 'A', 1)
-- run
SELECT id FROM (SELECT TOP 2 WITH TIES id FROM t WHERE n > 1 ORDER BY g) x ORDER BY id
-- expect
rowset
row 1
row 2
row 3
end
-- run
SELECT TOP 1 WITH TIES id, n FROM t ORDER BY n DESC, id
-- expect
rowset
row 1|9
end
-- run
SELECT TOP 1 WITH TIES id FROM t
-- expect
error 1062
