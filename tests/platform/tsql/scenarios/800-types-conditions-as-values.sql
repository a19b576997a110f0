-- SQL Server has no Boolean values: a comparison written as a value (in a SELECT's list, as a
-- function's argument, after SET @v =, in VALUES) is a syntax error, 102 near its operator or
-- 156 near a keyword (IS, LIKE, IN, BETWEEN, NOT), and the batch runs nothing. Comparisons stay
-- where conditions go: CASE WHEN, IIF's first argument, WHERE, a subquery's WHERE, and
-- name = value is a column's name in a SELECT's list.
-- run
CREATE TABLE cond_vals (id INT, a INT, b INT, nombre VARCHAR(20))
INSERT INTO cond_vals VALUES (1, 1, 2, 'Ana')
INSERT INTO cond_vals VALUES (2, 5, 3, NULL)
-- run
SELECT a < b FROM cond_vals
-- expect
error 102
-- run
SELECT 1 = 1
-- expect
error 102
-- run
SELECT id, a >= b AS mayor FROM cond_vals
-- expect
error 102
-- run
SELECT nombre IS NULL FROM cond_vals
-- expect
error 156
-- run
SELECT nombre LIKE 'A%' FROM cond_vals
-- expect
error 156
-- run
SELECT id FROM cond_vals WHERE id = 1
SELECT ISNULL(a > b, 0) FROM cond_vals
-- expect
error 102
-- run
DECLARE @v INT
SET @v = 2 > 1
-- expect
error 102
-- run
INSERT INTO cond_vals VALUES (3, 1 <> 2, 0, 'x')
-- expect
error 102
-- run
SELECT COUNT(*) FROM cond_vals
-- expect
rowset
row 2
end
-- run
SELECT id, CASE WHEN a < b THEN 'menor' ELSE 'no' END, IIF(a > b, 1, 0), mayor = a * 10, 'suma' = a + b FROM cond_vals ORDER BY id
-- expect
rowset
row 1|menor|0|10|3
row 2|no|1|50|8
end
-- run
SELECT id, (SELECT COUNT(*) FROM cond_vals c WHERE c.a > cond_vals.a) FROM cond_vals WHERE a <> b AND nombre IS NOT NULL OR id BETWEEN 2 AND 3 ORDER BY id
-- expect
rowset
row 1|1
row 2|0
end
-- run
DECLARE @n INT
SET @n = CASE WHEN EXISTS (SELECT 1 FROM cond_vals WHERE a > 4) THEN 1 ELSE 0 END
SELECT @n = @n + 1
SELECT @n
-- expect
rowset
row 2
end
