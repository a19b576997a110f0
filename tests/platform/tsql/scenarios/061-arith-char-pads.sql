-- A CHAR(n) value is padded with blanks to its length.
-- run
CREATE TABLE t (c CHAR(5))
-- run
INSERT INTO t VALUES ('ab')
-- run
SELECT c + '|', DATALENGTH(c) FROM t
-- expect
rowset
row ab   ||5
end
