-- DELETE alias FROM ... JOIN.
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
CREATE TABLE u (id INT)
-- run
INSERT INTO u VALUES (3)
-- run
DELETE x FROM t x JOIN u ON u.id = x.id
-- expect
count 1
-- run
SELECT COUNT(*) FROM t
-- expect
rowset
row 3
end
