-- A duplicate key of a unique index is error 2601.
-- run
CREATE TABLE t (id INT)
-- run
CREATE UNIQUE INDEX ix_t ON t (id)
-- run
INSERT INTO t VALUES (1)
-- expect
count 1
-- run
INSERT INTO t VALUES (1)
-- expect
error 2601
