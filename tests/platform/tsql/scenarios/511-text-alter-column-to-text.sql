-- A column made TEXT or NTEXT by ALTER COLUMN keeps its values' trailing blanks; NTEXT counts
-- two bytes a character in DATALENGTH, TEXT one, also after being NTEXT.
-- run
CREATE TABLE t (id INT, v VARCHAR(10), n NVARCHAR(10), c CHAR(4))
-- run
INSERT INTO t VALUES (1, 'ab  ', 'ñu ', 'x')
INSERT INTO t VALUES (2, NULL, NULL, NULL)
-- run
ALTER TABLE t ALTER COLUMN v TEXT
-- run
ALTER TABLE t ALTER COLUMN n NTEXT NULL
-- run
ALTER TABLE t ALTER COLUMN c NTEXT
-- run
SELECT id, DATALENGTH(v), DATALENGTH(n), DATALENGTH(c), CAST(n AS NVARCHAR(10)) + ']' FROM t ORDER BY id
-- expect
rowset
row 1|4|6|8|ñu ]
row 2|NULL|NULL|NULL|NULL
end
-- run
ALTER TABLE t ALTER COLUMN c TEXT
-- run
INSERT INTO t (id, v, n, c) VALUES (3, 'a', 'b', 'cd ')
-- run
SELECT SUM(DATALENGTH(v)), SUM(DATALENGTH(n)), SUM(DATALENGTH(c)) FROM t
-- expect
rowset
row 5|8|7
end
