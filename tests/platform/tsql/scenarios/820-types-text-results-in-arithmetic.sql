-- A CASE, IIF or COALESCE whose values are all texts answers a text, and so do ISNULL of a text
-- and the text functions (SUBSTRING, LEFT): beside a number in arithmetic or a comparison the
-- text is converted to the number's type by data type precedence ('2' + 1 is 3, '1.255' beside
-- a DECIMAL(6,2) is 1.26), a word is 245 for an integer and 8114 for a decimal.
-- run
CREATE TABLE pedidos (id INT, cod VARCHAR(10), nota NVARCHAR(10), precio DECIMAL(6,2))
INSERT INTO pedidos VALUES (1, '12', N'3', 2.50)
INSERT INTO pedidos VALUES (2, NULL, N'7', NULL)
INSERT INTO pedidos VALUES (3, 'x9', NULL, 1.00)
-- run
SELECT CASE WHEN 1 = 1 THEN '1' ELSE '2' END + 1, 10 - CASE WHEN 1 = 0 THEN '1' ELSE '3' END, IIF(1 = 0, '1', '2') * 3, COALESCE(NULL, '5') + 1
-- expect
rowset
row 2|7|6|6
end
-- run
SELECT id, CASE WHEN id = 1 THEN cod ELSE '0' END + 1, ISNULL(cod, '0') + 1, SUBSTRING(cod, 1, 1) * 2, LEFT(nota, 1) + 1, COALESCE(cod, nota) + 1 FROM pedidos WHERE id < 3 ORDER BY id
-- expect
rowset
row 1|13|13|2|4|13
row 2|1|1|NULL|8|8
end
-- run
SELECT CASE WHEN id = 1 THEN '1.255' ELSE '2' END + precio FROM pedidos WHERE id = 1
-- expect
rowset
row 3.76
end
-- run
SELECT id FROM pedidos WHERE CASE WHEN id = 1 THEN cod ELSE '0' END = 12
-- expect
rowset
row 1
end
-- run
SELECT CASE WHEN id = 3 THEN cod END + 1 FROM pedidos WHERE id = 3
-- expect
error 245
-- run
SELECT IIF(id = 3, cod, '1') * 1.5 FROM pedidos WHERE id = 3
-- expect
error 8114
