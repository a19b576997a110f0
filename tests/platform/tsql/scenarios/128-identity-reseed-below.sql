-- DBCC CHECKIDENT RESEED below the highest value takes effect; the next insert then collides (2627).
-- run
CREATE TABLE t (id INT IDENTITY(1,1) PRIMARY KEY, n INT)
-- run
INSERT INTO t (n) VALUES (1)
-- expect
count 1
-- run
INSERT INTO t (n) VALUES (2)
-- expect
count 1
-- run
DBCC CHECKIDENT ('t', RESEED, 0)
-- run
INSERT INTO t (n) VALUES (3)
-- expect
error 2627
