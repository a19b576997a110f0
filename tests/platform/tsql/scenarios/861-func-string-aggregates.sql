-- STRING_AGG joins a group's values with the separator, leaving NULLs out (a group of NULLs
-- alone is NULL) and keeping trailing blanks; integers are joined as their digits. CONCAT_WS
-- joins the values that are not NULL (an empty text counts), and the empty text when all are.
-- run
CREATE TABLE etiquetas (grupo INT, nombre VARCHAR(10))
INSERT INTO etiquetas VALUES (1, 'x'), (1, 'x'), (2, NULL), (2, 'y '), (3, NULL)
-- run
SELECT grupo, STRING_AGG(nombre, '-') + '|' FROM etiquetas GROUP BY grupo ORDER BY grupo
-- expect
rowset
row 1|x-x|
row 2|y |
row 3|NULL
end
-- run
SELECT STRING_AGG(grupo, ';') FROM etiquetas WHERE nombre = 'X'
-- expect
rowset
row 1;1
end
-- run
SELECT CONCAT_WS(', ', 'a', NULL, 'b', 1), CONCAT_WS(',', 'a', '', 'b'), CONCAT_WS('-', NULL, NULL) + '|'
-- expect
rowset
row a, b, 1|a,,b||
end
-- run
SELECT CONCAT_WS(',', 'a')
-- expect
error 189
