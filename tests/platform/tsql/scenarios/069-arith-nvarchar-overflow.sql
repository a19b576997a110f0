-- A text longer than its NVARCHAR(n) column is error 8152.
-- run
CREATE TABLE t (s NVARCHAR(3))
-- run
INSERT INTO t VALUES (N'ñandú')
-- expect
error 8152
