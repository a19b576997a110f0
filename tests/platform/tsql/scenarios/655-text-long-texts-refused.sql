-- TEXT and NTEXT values are not compared or sorted: = and the other comparisons are error 402
-- naming both types and the operator, ORDER BY and GROUP BY of such a column 306, DISTINCT and
-- UNION over one 421; LIKE, IS NULL, DATALENGTH, SUBSTRING and a CAST to VARCHAR(n) work.
-- run
CREATE TABLE notas (id INT, texto TEXT, nota NTEXT, breve VARCHAR(10))
-- run
INSERT INTO notas VALUES (1, 'primera nota', N'uno', 'abc')
INSERT INTO notas VALUES (2, 'segunda', NULL, 'def')
-- run
SELECT id, DATALENGTH(texto), SUBSTRING(texto, 1, 4) FROM notas WHERE texto LIKE 'pri%' AND nota IS NOT NULL AND CAST(texto AS VARCHAR(20)) = 'primera nota'
-- expect
rowset
row 1|12|prim
end
-- run
SELECT id FROM notas UNION ALL SELECT id FROM notas WHERE texto IS NULL
-- expect
rowset
row 1
row 2
end
-- run
SELECT id FROM notas WHERE texto = 'segunda'
-- expect
error 402
-- run
SELECT id FROM notas n WHERE n.breve <> n.nota
-- expect
error 402
-- run
SELECT id FROM notas ORDER BY texto
-- expect
error 306
-- run
SELECT COUNT(*) FROM notas GROUP BY nota
-- expect
error 306
-- run
SELECT DISTINCT nota FROM notas
-- expect
error 421
-- run
SELECT texto FROM notas UNION SELECT breve FROM notas
-- expect
error 421
