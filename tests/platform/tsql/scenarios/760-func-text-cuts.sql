-- SUBSTRING, LEFT and RIGHT cut as SQL Server does: a start before the first character still
-- counts its positions (SUBSTRING('abcdef', -1, 3) is 'a'), a part past the end is empty, a
-- length of 0 gives '', NULL gives NULL; a negative length is error 537 for LEFT and SUBSTRING
-- and 536 for RIGHT, from literals and from columns alike. They and STUFF keep trailing blanks.
-- run
SELECT '[' + SUBSTRING('abcdef', 0, 3) + ']', '[' + SUBSTRING('abcdef', -1, 3) + ']', '[' + SUBSTRING('abc', 2, 100) + ']', '[' + SUBSTRING('abc', 5, 2) + ']', '[' + SUBSTRING('abcdef', -5, 3) + ']'
-- expect
rowset
row [ab]|[a]|[bc]|[]|[]
end
-- run
SELECT '[' + LEFT('abc', 0) + ']', '[' + RIGHT('abc', 0) + ']', RIGHT('abc', 5), LEFT('ñandú', 2), RIGHT('ñandú', 2), LEFT(NULL, 1), RIGHT('abc', NULL)
-- expect
rowset
row []|[]|abc|ña|dú|NULL|NULL
end
-- run
SELECT DATALENGTH(SUBSTRING(0x010203, 0, 2)), DATALENGTH(SUBSTRING(0x010203, 2, 5))
-- expect
rowset
row 1|2
end
-- run
CREATE TABLE cortes (id INT, nombre VARCHAR(20), n INT)
INSERT INTO cortes VALUES (1, 'Ana', 2)
INSERT INTO cortes VALUES (2, 'Bernardo', -1)
-- run
SELECT id, SUBSTRING(nombre, -1, 3), LEFT(nombre, 2), RIGHT(nombre, 3) FROM cortes ORDER BY id
-- expect
rowset
row 1|A|An|Ana
row 2|B|Be|rdo
end
-- run
SELECT LEFT(nombre, n) FROM cortes WHERE id = 2
-- expect
error 537
-- run
SELECT RIGHT('abc', -1)
-- expect
error 536
-- run
SELECT SUBSTRING(nombre, 1, n) FROM cortes WHERE id = 2
-- expect
error 537
-- run
SELECT SUBSTRING('abc', 1, -1)
-- expect
error 537
-- run
INSERT INTO cortes VALUES (3, 'Eva  ', 0)
SELECT STUFF(nombre, 1, 1, 'A') + '#', LEFT(nombre, 4) + '#', RIGHT(nombre, 3) + '#', SUBSTRING(nombre, 3, 5) + '#' FROM cortes WHERE id = 3
-- expect
count 1
rowset
row Ava  #|Eva #|a  #|a  #
end
