-- A DATETIME cast to an integer type is its number of days since 1900-01-01, rounded: from noon
-- on it is the next day's. A text cast to FLOAT is a number between blanks (with a fraction and
-- an exponent or not) or a blank text, 0; any other text is error 8114.
-- run
CREATE TABLE t (id INT, d DATETIME, v VARCHAR(20))
-- run
INSERT INTO t VALUES (1, '15/03/2024 11:59:59', ' 1.5e3 ')
INSERT INTO t VALUES (2, '15/03/2024 12:00', '-.5')
INSERT INTO t VALUES (3, '01/01/1900', '')
INSERT INTO t VALUES (4, '29/02/2000 23:59', '7')
INSERT INTO t VALUES (5, NULL, 'doce')
-- run
SELECT id, CAST(d AS INT), CONVERT(BIGINT, d), CAST(v AS FLOAT) FROM t WHERE id < 5 ORDER BY id
-- expect
rowset
row 1|45364|45364|1500
row 2|45365|45365|-0.5
row 3|0|0|0
row 4|36584|36584|7
end
-- run
SELECT CAST(d AS INT) FROM t WHERE id = 5
-- expect
rowset
row NULL
end
-- run
SELECT CAST(v AS FLOAT) FROM t WHERE id = 5
-- expect
error 8114
-- run
SELECT CAST(' 1.5e3 ' AS FLOAT), CONVERT(FLOAT, '2.5'), CAST(CAST('20240315 18:00' AS DATETIME) AS INT)
-- expect
rowset
row 1500|2.5|45365
end
-- run
SELECT CONVERT(FLOAT, 'uno')
-- expect
error 8114
