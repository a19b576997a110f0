-- SELECT ... INTO gives the new table the source columns' types: a VARCHAR(5) stays VARCHAR(5).
-- run
CREATE TABLE t (id INT, codigo VARCHAR(5))
-- run
INSERT INTO t VALUES (1, 'ab')
-- run
SELECT id, codigo INTO copia FROM t
-- expect
count 1
-- run
INSERT INTO copia (id, codigo) VALUES (2, 'abcdefgh')
-- expect
error 8152
-- run
INSERT INTO copia (id, codigo) VALUES (2, 'abcde')
-- expect
count 1
