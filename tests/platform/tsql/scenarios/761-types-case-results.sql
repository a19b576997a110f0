-- CASE, IIF, COALESCE and ISNULL answer one type: ISNULL its first argument's, the others the
-- type of highest precedence among their values. A text value among integers becomes an integer
-- ('' is 0, '12' is 12, a word is 245), among decimals a decimal ('' is 8114); texts alone stay
-- texts.
-- run
CREATE TABLE resultados (id INT, n INT, cod VARCHAR(10), d DECIMAL(6,2))
INSERT INTO resultados VALUES (1, 5, 'A', 1.25)
INSERT INTO resultados VALUES (2, NULL, '12', NULL)
INSERT INTO resultados VALUES (3, NULL, NULL, 2.5)
-- run
SELECT id, ISNULL(n, ''), COALESCE(n, ''), CASE WHEN n IS NULL THEN '' ELSE n END, IIF(n IS NULL, '', n) FROM resultados ORDER BY id
-- expect
rowset
row 1|5|5|5|5
row 2|0|0|0|0
row 3|0|0|0|0
end
-- run
SELECT id, CASE WHEN id = 2 THEN cod ELSE n END FROM resultados WHERE id < 3 ORDER BY id
-- expect
rowset
row 1|5
row 2|12
end
-- run
SELECT id FROM resultados WHERE COALESCE(d, n, '0') = 0
-- expect
rowset
row 2
end
-- run
SELECT '[' + COALESCE(cod, '') + ']', ISNULL(cod, 'ninguno') FROM resultados ORDER BY id
-- expect
rowset
row [A]|A
row [12]|12
row []|ninguno
end
-- run
SELECT CASE WHEN id = 1 THEN cod ELSE n END FROM resultados WHERE id = 1
-- expect
error 245
-- run
SELECT COALESCE(d, '') FROM resultados WHERE id = 2
-- expect
error 8114
