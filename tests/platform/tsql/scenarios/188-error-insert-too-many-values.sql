-- More values than columns in an INSERT is error 110.
-- run
CREATE TABLE t (id INT)
-- run
INSERT INTO t (id) VALUES (1, 2)
-- expect
error 110
