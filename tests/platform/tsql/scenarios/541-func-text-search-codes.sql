-- Searching inside texts and character codes: PATINDEX under the collation (a pattern without
-- a leading % must match from the start), CHARINDEX from a start position (below 1 counts from
-- 1), ASCII and CHAR in the code page 1252 (NULL past 255 and for an empty text), NCHAR and
-- UNICODE in Unicode.
-- run
SELECT PATINDEX('%ñ%', 'España'), PATINDEX('%[0-9]%', 'abc12'), PATINDEX('ab%', 'abc'), PATINDEX('b%', 'abc'), PATINDEX('%C', 'abc'), PATINDEX('%e%', 'CAFÉ'), PATINDEX('%x%', NULL)
-- expect
rowset
row 5|4|1|0|3|4|NULL
end
-- run
SELECT CHARINDEX('a', 'banana', 3), CHARINDEX('A', 'banana', 0), CHARINDEX('z', 'banana', 2), CHARINDEX('a', 'banana', 7), CHARINDEX('a', 'banana', NULL)
-- expect
rowset
row 4|2|0|0|NULL
end
-- run
SELECT ASCII('A'), ASCII('ñ'), ASCII(''), CHAR(65), CHAR(241), CHAR(128), CHAR(256), NCHAR(8364), UNICODE(N'€'), UNICODE(''), ASCII('€')
-- expect
rowset
row 65|241|NULL|A|ñ|€|NULL|€|8364|NULL|128
end
-- run
SELECT LEN('a' + CHAR(13) + CHAR(10) + 'b'), 'x' + CHAR(65) + NCHAR(66)
-- expect
rowset
row 4|xAB
end
-- run
CREATE TABLE t (id INT, code VARCHAR(20))
-- run
INSERT INTO t VALUES (1, 'AB-123')
INSERT INTO t VALUES (2, 'xyz')
INSERT INTO t VALUES (3, 'ab9')
-- run
SELECT id, PATINDEX('%[0-9]%', code), CHARINDEX('b', code, 2), ASCII(code) FROM t ORDER BY id
-- expect
rowset
row 1|4|2|65
row 2|0|0|120
row 3|3|2|97
end
-- run
SELECT id FROM t WHERE PATINDEX('ab%', code) = 1 ORDER BY id
-- expect
rowset
row 1
row 3
end
