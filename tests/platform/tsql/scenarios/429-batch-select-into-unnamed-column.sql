-- SELECT ... INTO with a computed column that has no name is error 1038.
-- run
CREATE TABLE t (id INT, n INT)
-- run
SELECT id, n * 2 INTO doble FROM t
-- expect
error 1038
