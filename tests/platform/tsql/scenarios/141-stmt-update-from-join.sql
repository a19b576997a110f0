-- UPDATE ... FROM with a join.
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
CREATE TABLE u (id INT, v INT)
-- run
INSERT INTO u VALUES (2, 50)
-- run
UPDATE t SET n = u.v FROM t JOIN u ON u.id = t.id
-- expect
count 1
-- run
SELECT n FROM t WHERE id = 2
-- expect
rowset
row 50
end
