-- A number beyond the INT range stored in an INT column is error 8115.
-- run
CREATE TABLE t (n INT)
-- run
INSERT INTO t VALUES (3000000000)
-- expect
error 8115
