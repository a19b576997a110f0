-- An UPDATE that duplicates a primary key is error 2627.
-- run
CREATE TABLE t (id INT NOT NULL PRIMARY KEY)
-- run
INSERT INTO t VALUES (1)
-- run
INSERT INTO t VALUES (2)
-- run
UPDATE t SET id = 1 WHERE id = 2
-- expect
error 2627
