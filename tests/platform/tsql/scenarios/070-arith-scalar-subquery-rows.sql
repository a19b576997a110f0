-- A scalar subquery that answers several rows is error 512.
-- run
CREATE TABLE t (n INT)
-- run
INSERT INTO t VALUES (1)
-- run
INSERT INTO t VALUES (2)
-- run
SELECT (SELECT n FROM t) + 1
-- expect
error 512
