-- Text functions over a VARCHAR or NVARCHAR column's value keep its trailing blanks: DATALENGTH
-- and "+" count them, LEN leaves them out, and the results still equal the text without them.
-- run
CREATE TABLE t (id INT, v VARCHAR(10), n NVARCHAR(10), w VARCHAR(10))
-- run
INSERT INTO t VALUES (1, 'ab  ', 'xy ', '  cd  ')
INSERT INTO t VALUES (2, 'ab', NULL, NULL)
-- run
SELECT DATALENGTH(UPPER(v)), UPPER(v) + 'x', LEN(UPPER(v)), DATALENGTH(LOWER(n)), LOWER(n) + 'z' FROM t WHERE id = 1
-- expect
rowset
row 4|AB  x|2|6|xy z
end
-- run
SELECT '[' + LEFT(v, 3) + ']', '[' + RIGHT(v, 3) + ']', DATALENGTH(SUBSTRING(v, 2, 10)), '[' + LTRIM(w) + ']', DATALENGTH(LTRIM(w)) FROM t WHERE id = 1
-- expect
rowset
row [ab ]|[b  ]|3|[cd  ]|4
end
-- run
SELECT REPLACE(v, 'A', 'x') + ']', DATALENGTH(CAST(v AS VARCHAR(3))), DATALENGTH(CONVERT(NVARCHAR(10), v)), CAST(v AS VARCHAR(10)) + ']' FROM t WHERE id = 1
-- expect
rowset
row xb  ]|3|8|ab  ]
end
-- run
SELECT ISNULL(v, 'z') + ']', DATALENGTH(COALESCE(v, 'z')), DATALENGTH(ISNULL(n, 'abc')) FROM t ORDER BY id
-- expect
rowset
row ab  ]|4|6
row ab]|2|6
end
-- run
SELECT COUNT(*) FROM t WHERE UPPER(v) = 'AB' AND LEFT(v, 3) = 'ab' AND CAST(v AS VARCHAR(5)) = 'AB  ' AND REPLACE(v, 'b', 'c') = 'ac'
-- expect
rowset
row 2
end
-- run
SELECT UPPER(v), COUNT(*) FROM t GROUP BY UPPER(v)
-- expect
rowset
row {any}|2
end
-- run
SELECT COUNT(DISTINCT LEFT(v, 4)) FROM t
-- expect
rowset
row 1
end
