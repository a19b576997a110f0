-- Setting a NOT NULL column to NULL is error 515.
-- run
CREATE TABLE t (id INT NOT NULL)
-- run
INSERT INTO t VALUES (1)
-- run
UPDATE t SET id = NULL
-- expect
error 515
