-- A duplicate primary key is error 2627.
-- run
CREATE TABLE t (id INT NOT NULL PRIMARY KEY)
-- run
INSERT INTO t VALUES (1)
-- expect
count 1
-- run
INSERT INTO t VALUES (1)
-- expect
error 2627
