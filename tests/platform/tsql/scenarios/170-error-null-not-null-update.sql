-- Setting a NOT NULL column to NULL is error 515.
-- gap sqlite: UPDATE t SET id = NULL answers error 1299, not error 515
-- gap postgres: UPDATE t SET id = NULL answers error, not error 515
-- run
CREATE TABLE t (id INT NOT NULL)
-- run
INSERT INTO t VALUES (1)
-- run
UPDATE t SET id = NULL
-- expect
error 515
