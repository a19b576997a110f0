-- In one table a duplicate of a UNIQUE constraint of two columns is error 2627, of a unique
-- index error 2601, on INSERT and on UPDATE.
-- run
CREATE TABLE t (a INT, b INT, c INT, CONSTRAINT uq_t_ab UNIQUE (a, b))
-- run
CREATE UNIQUE INDEX ix_c ON t (c)
-- run
INSERT INTO t VALUES (1, 1, 1)
-- run
INSERT INTO t VALUES (1, 2, 2)
-- run
INSERT INTO t VALUES (1, 1, 3)
-- expect
error 2627
-- run
INSERT INTO t VALUES (2, 2, 1)
-- expect
error 2601
-- run
UPDATE t SET b = 1 WHERE c = 2
-- expect
error 2627
-- run
UPDATE t SET c = 1 WHERE c = 2
-- expect
error 2601
