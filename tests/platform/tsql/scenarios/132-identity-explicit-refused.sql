-- An explicit identity value without IDENTITY_INSERT is error 544.
-- run
CREATE TABLE t (id INT IDENTITY(1,1), n INT)
-- run
INSERT INTO t (id, n) VALUES (5, 1)
-- expect
error 544
