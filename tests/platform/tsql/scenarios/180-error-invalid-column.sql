-- An unknown column is error 207.
-- run
CREATE TABLE t (id INT)
-- run
SELECT no_existe FROM t
-- expect
error 207
