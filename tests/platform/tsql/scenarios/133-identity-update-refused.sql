-- Updating an identity column is error 8102.
-- run
CREATE TABLE t (id INT IDENTITY(1,1), n INT)
-- run
INSERT INTO t (n) VALUES (1)
-- expect
count 1
-- run
UPDATE t SET id = 7
-- expect
error 8102
