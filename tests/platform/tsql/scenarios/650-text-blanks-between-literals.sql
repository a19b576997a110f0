-- Texts that are no column's value compare under the database collation too, trailing blanks
-- and case ignored: literals compared, in IN and NOT IN lists, literals and texts joined by "+"
-- in a UNION (one row), in SELECT DISTINCT and in COUNT(DISTINCT ...). A column of a UNION
-- that holds a number in one branch stays a number column.
-- run
CREATE TABLE nombres (id INT, nombre VARCHAR(20))
-- run
INSERT INTO nombres VALUES (1, 'Ana')
INSERT INTO nombres VALUES (2, 'ANA  ')
INSERT INTO nombres VALUES (3, 'Luis')
-- run
SELECT CASE WHEN 'a' = 'a  ' THEN 1 ELSE 0 END, CASE WHEN 'a' IN ('b', 'A  ') THEN 1 ELSE 0 END, CASE WHEN 'a ' NOT IN ('b', 'A') THEN 1 ELSE 0 END
-- expect
rowset
row 1|1|0
end
-- run
SELECT COUNT(*) FROM (SELECT 'a' AS v UNION SELECT 'a  ' UNION SELECT 'A') x
-- expect
rowset
row 1
end
-- run
SELECT COUNT(*) FROM (SELECT 'a' AS v UNION ALL SELECT 'a  ') x
-- expect
rowset
row 2
end
-- run
SELECT COUNT(*) FROM (SELECT DISTINCT nombre + ' ' AS n FROM nombres) x
-- expect
rowset
row 2
end
-- run
SELECT COUNT(DISTINCT 'Sr. ' + nombre), COUNT(DISTINCT nombre + '.') FROM nombres
-- expect
rowset
row 2|3
end
-- run
SELECT COUNT(*) FROM (SELECT nombre + 'x' AS n FROM nombres WHERE id = 1 UNION SELECT 'anax  ' UNION SELECT 'luisx') x
-- expect
rowset
row 2
end
-- run
SELECT v FROM (SELECT '7' AS v UNION SELECT id FROM nombres WHERE id = 1) x ORDER BY v
-- expect
rowset
row 1
row 7
end
