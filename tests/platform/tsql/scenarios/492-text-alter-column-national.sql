-- A column made NVARCHAR or NCHAR by ALTER COLUMN counts two bytes a character in DATALENGTH,
-- one made VARCHAR again one; the values it held stay.
-- run
CREATE TABLE t (id INT, v VARCHAR(10), c CHAR(4), n NVARCHAR(10))
-- run
INSERT INTO t VALUES (1, 'año', 'ab', 'xyz')
-- run
ALTER TABLE t ALTER COLUMN v NVARCHAR(12)
-- run
ALTER TABLE t ALTER COLUMN c NCHAR(4)
-- run
ALTER TABLE t ALTER COLUMN n VARCHAR(10)
-- run
SELECT v, DATALENGTH(v), DATALENGTH(c), n, DATALENGTH(n) FROM t
-- expect
rowset
row año|6|8|xyz|3
end
-- run
INSERT INTO t VALUES (2, 'niño', 'cd', 'u')
-- run
SELECT SUM(DATALENGTH(v)), SUM(DATALENGTH(c)) FROM t
-- expect
rowset
row 14|16
end
