-- Texts built by functions: REPLICATE and SPACE (NULL for a negative count), REVERSE, STUFF (NULL
-- for a start outside the text or a negative length, a NULL insert only deletes), QUOTENAME (the
-- closing quote doubled, NULL for an unknown quote) and CONCAT (NULLs as empty texts, numbers as
-- their digits). Their results compare under the column collation.
-- run
SELECT REPLICATE('ab', 3), '[' + SPACE(3) + ']', REVERSE('abc'), STUFF('abcdef', 2, 3, 'XYZW')
-- expect
rowset
row ababab|[   ]|cba|aXYZWef
end
-- run
SELECT REPLICATE('ab', -1), SPACE(-1), STUFF('abc', 0, 1, 'x'), STUFF('abc', 4, 1, 'x'), STUFF('abc', 2, 1, NULL), STUFF('abc', 2, 10, 'Z'), REPLICATE(NULL, 2), STUFF('abc', 2, -1, 'x')
-- expect
rowset
row NULL|NULL|NULL|NULL|ac|aZ|NULL|NULL
end
-- run
SELECT QUOTENAME('a]b'), QUOTENAME('it''s', ''''), QUOTENAME('x', '('), QUOTENAME('x', '}'), QUOTENAME('x', 'z'), CONCAT('a', NULL, 'b', 1), '[' + CONCAT(NULL, NULL) + ']'
-- expect
rowset
row [a]]b]|'it''s'|(x)|{x}|NULL|ab1|[]
end
-- run
CREATE TABLE t (id INT, name VARCHAR(20), code INT)
-- run
INSERT INTO t VALUES (1, 'Peña', 7)
INSERT INTO t VALUES (2, 'Ruiz', NULL)
-- run
SELECT id, REVERSE(name), CONCAT(name, '-', code), STUFF(name, 1, 1, 'X'), REPLICATE(name, 2) FROM t ORDER BY id
-- expect
rowset
row 1|añeP|Peña-7|Xeña|PeñaPeña
row 2|ziuR|Ruiz-|Xuiz|RuizRuiz
end
-- run
SELECT id FROM t WHERE REVERSE(name) = 'AÑEP' OR CONCAT(name, 'X') = 'ruizx' ORDER BY id
-- expect
rowset
row 1
row 2
end
