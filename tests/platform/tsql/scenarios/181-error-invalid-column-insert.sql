-- An unknown column in an INSERT's list is error 207.
-- run
CREATE TABLE t (id INT)
-- run
INSERT INTO t (no_existe) VALUES (1)
-- expect
error 207
