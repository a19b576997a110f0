-- A value with more integer digits than its DECIMAL(p,s) is error 8115.
-- run
CREATE TABLE t (n DECIMAL(5,2))
-- run
INSERT INTO t VALUES (1234.5)
-- expect
error 8115
