-- INSERT ... SELECT converts what it stores as SQL Server does: a text of a whole number into
-- an integer column (a fraction or a word is error 245), a number text into a DECIMAL one (a
-- word is 8114), and a CHAR(n) value padded to n, as VALUES stores them.
-- run
CREATE TABLE origen (id INT, v VARCHAR(10))
-- run
CREATE TABLE destino (n INT, d DECIMAL(6,2), c CHAR(4))
-- run
INSERT INTO origen VALUES (1, ' 12 ')
INSERT INTO origen VALUES (2, '12.5')
INSERT INTO origen VALUES (3, 'doce')
-- run
INSERT INTO destino SELECT v, v, 'ab' FROM origen WHERE id = 1
-- expect
count 1
-- run
INSERT INTO destino (d, n, c) SELECT v AS valor, id + 5, LEFT(v, 1) FROM origen WHERE id = 2
-- expect
count 1
-- run
INSERT INTO destino (n) SELECT v FROM origen WHERE id = 2
-- expect
error 245
-- run
INSERT INTO destino (n) SELECT v FROM origen WHERE id = 3
-- expect
error 245
-- run
INSERT INTO destino (d) SELECT v FROM origen WHERE id = 3
-- expect
error 8114
-- run
UPDATE destino SET c = RTRIM(c) + 'x' WHERE n = 7
-- expect
count 1
-- run
SELECT n + 1, d * 2, c + '|', DATALENGTH(c) FROM destino ORDER BY n
-- expect
rowset
row 8|25|1x  ||4
row 13|24|ab  ||4
end
