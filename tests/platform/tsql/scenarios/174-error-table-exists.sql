-- Creating a table that exists is error 2714.
-- run
CREATE TABLE t (id INT)
-- run
CREATE TABLE t (id INT)
-- expect
error 2714
