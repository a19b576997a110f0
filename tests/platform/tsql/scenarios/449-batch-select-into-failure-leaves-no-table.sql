-- A SELECT ... INTO that fails on a row makes no table.
-- run
CREATE TABLE t (id INT, n INT)
-- run
INSERT INTO t VALUES (1, 1) INSERT INTO t VALUES (2, 0)
-- run
SELECT id, 10 / n AS cociente INTO roto FROM t
-- expect
error 8134
-- run
SELECT * FROM roto
-- expect
error 208
