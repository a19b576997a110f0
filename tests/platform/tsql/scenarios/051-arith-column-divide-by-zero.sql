-- Dividing by a column that holds zero is error 8134.
-- run
CREATE TABLE t (a INT, b INT)
-- run
INSERT INTO t VALUES (10, 0)
-- run
SELECT a / b FROM t
-- expect
error 8134
