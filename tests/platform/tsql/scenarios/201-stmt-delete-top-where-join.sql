-- DELETE TOP (n) takes n of the rows its WHERE picks; DELETE t FROM t JOIN u removes the rows
-- of t that the join finds.
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
DELETE TOP (1) FROM t WHERE n = 7
-- expect
count 1
-- run
SELECT COUNT(*) FROM t WHERE n = 7
-- expect
rowset
row 1
end
-- run
CREATE TABLE u (id INT)
-- run
INSERT INTO u VALUES (1)
-- run
INSERT INTO u VALUES (2)
-- run
DELETE t FROM t JOIN u ON u.id = t.id WHERE t.n > 0
-- expect
count 1
-- run
SELECT id FROM t ORDER BY id
-- expect
rowset
row 1
row {any}
end
