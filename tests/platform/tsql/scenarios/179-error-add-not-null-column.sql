-- Adding a NOT NULL column without a default to a table with rows is error 4901.
-- run
CREATE TABLE t (id INT)
-- run
INSERT INTO t VALUES (1)
-- run
ALTER TABLE t ADD c INT NOT NULL
-- expect
error 4901
