-- DATALENGTH counts two bytes a character of NCHAR, NVARCHAR and NTEXT values (NCHAR(n) with
-- its blanks) and of N'...' literals, one of CHAR and VARCHAR ones.
-- run
CREATE TABLE t (id INT, nv NVARCHAR(10), nc NCHAR(4), nt NTEXT, v VARCHAR(10))
-- run
INSERT INTO t VALUES (1, 'año', 'ab', 'ñandú', 'año')
-- run
SELECT DATALENGTH(nv), DATALENGTH(nc), DATALENGTH(nt), DATALENGTH(v), DATALENGTH(N'abc'), DATALENGTH('abc') FROM t
-- expect
rowset
row 6|8|10|3|6|3
end
-- run
SELECT DATALENGTH(CAST(v AS NVARCHAR(10))), DATALENGTH(LEFT(nv, 2)) FROM t WHERE DATALENGTH(nv) = 6
-- expect
rowset
row 6|4
end
