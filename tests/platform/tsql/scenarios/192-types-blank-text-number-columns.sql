-- A blank text stored in a number column is 0; in a text column it stays a blank text.
-- run
CREATE TABLE t (id INT, i INT, s SMALLINT, y TINYINT, b BIT, f FLOAT, m MONEY, c VARCHAR(10))
-- run
INSERT INTO t VALUES (1, '', '', '', '', '', '', '')
-- expect
count 1
-- run
INSERT INTO t (c, m, f, b, y, s, i, id) VALUES ('', '', ' ', '', '', '', '', 2)
-- expect
count 1
-- run
SELECT i, s, y FROM t ORDER BY id
-- expect
rowset
row 0|0|0
row 0|0|0
end
-- run
SELECT COUNT(*) FROM t WHERE i = 0 AND s = 0 AND y = 0 AND b = 0 AND f = 0 AND m = 0 AND c = ''
-- expect
rowset
row 2
end
