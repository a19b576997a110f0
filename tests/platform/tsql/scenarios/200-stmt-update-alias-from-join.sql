-- UPDATE of an alias, its column named through the alias, FROM an INNER JOIN with a WHERE.
-- run
CREATE TABLE t (id INT, n INT)
-- run
INSERT INTO t VALUES (1, 0)
-- run
INSERT INTO t VALUES (2, 5)
-- run
INSERT INTO t VALUES (3, 7)
-- run
CREATE TABLE u (id INT, v INT)
-- run
INSERT INTO u VALUES (2, 50)
-- run
INSERT INTO u VALUES (3, 70)
-- run
UPDATE x SET x.n = u.v + x.n FROM t AS x INNER JOIN u ON u.id = x.id WHERE u.v > 60
-- expect
count 1
-- run
SELECT id, n FROM t ORDER BY id
-- expect
rowset
row 1|0
row 2|5
row 3|77
end
