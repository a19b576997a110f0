-- CAST and CONVERT of a column or variable holding a text to an integer type read it as SQL
-- Server does: a whole number between blanks converts, a blank text is 0, a fraction or a word
-- is error 245 (into a DECIMAL a word is 8114), and a number past the type is 248, 244 or 220.
-- run
CREATE TABLE t (id INT, v VARCHAR(12), f FLOAT)
-- run
INSERT INTO t VALUES (1, ' 12 ', -2.7)
INSERT INTO t VALUES (2, 'doce', 300)
INSERT INTO t VALUES (3, '12.5', 0)
INSERT INTO t VALUES (4, '', 0)
INSERT INTO t VALUES (5, '3000000000', 0)
INSERT INTO t VALUES (6, '300', 0)
-- run
SELECT CAST(v AS INT) + 1, CONVERT(SMALLINT, v), CAST(v AS BIGINT), CAST(f AS INT) FROM t WHERE id = 1
-- expect
rowset
row 13|12|12|-2
end
-- run
SELECT CAST(v AS INT), CONVERT(TINYINT, v) FROM t WHERE id = 4
-- expect
rowset
row 0|0
end
-- run
SELECT CAST(v AS INT) FROM t WHERE id = 2
-- expect
error 245
-- run
SELECT CONVERT(INT, v) FROM t WHERE id = 3
-- expect
error 245
-- run
SELECT id FROM t WHERE CAST(v AS INT) = 12 AND id = 3
-- expect
error 245
-- run
SELECT CAST(v AS DECIMAL(6,1)) FROM t WHERE id = 2
-- expect
error 8114
-- run
SELECT CAST(v AS INT) FROM t WHERE id = 5
-- expect
error 248
-- run
SELECT CAST(v AS TINYINT) FROM t WHERE id = 6
-- expect
error 244
-- run
SELECT CAST(f AS TINYINT) FROM t WHERE id = 2
-- expect
error 220
-- run
DECLARE @v VARCHAR(10)
SET @v = '12.5'
SELECT CONVERT(INT, @v)
-- expect
error 245
-- run
SELECT CONVERT(INT, 'doce')
-- expect
error 245
