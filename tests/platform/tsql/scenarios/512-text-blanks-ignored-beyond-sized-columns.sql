-- Trailing blanks are ignored in comparisons, GROUP BY, DISTINCT and UNION between texts that
-- are no sized column's: results of text functions and "+", VARCHAR(MAX) and NVARCHAR(MAX)
-- columns, variables; the values keep them.
-- run
CREATE TABLE t (id INT, v VARCHAR(10), m VARCHAR(MAX), n NVARCHAR(MAX))
-- run
INSERT INTO t VALUES (1, 'ab', 'ab  ', 'cd ')
INSERT INTO t VALUES (2, 'ab ', 'ab', 'cd')
-- run
SELECT id, DATALENGTH(m), DATALENGTH(n), m + ']' FROM t ORDER BY id
-- expect
rowset
row 1|4|6|ab  ]
row 2|2|4|ab]
end
-- run
SELECT COUNT(*) FROM t a, t b WHERE a.m = b.m AND a.n = b.n AND a.m = b.v AND NOT a.m < b.m AND a.v + ' ' = b.m AND UPPER(a.m) = LOWER(b.m + '  ')
-- expect
rowset
row 4
end
-- run
SELECT m, COUNT(*) FROM t GROUP BY m
-- expect
rowset
row {any}|2
end
-- run
SELECT COUNT(DISTINCT n), COUNT(DISTINCT LEFT(m, 3)) FROM t
-- expect
rowset
row 1|1
end
-- run
SELECT COUNT(*) FROM (SELECT m FROM t UNION SELECT n FROM t UNION SELECT UPPER(v) FROM t) x
-- expect
rowset
row 2
end
-- run
DECLARE @a VARCHAR(10), @b VARCHAR(10)
SET @a = 'ab  '
SET @b = 'AB'
IF @a = @b SELECT COUNT(*) FROM t WHERE m = @a AND @b = v ELSE SELECT -1
-- expect
rowset
row 2
end
