-- Dropping an index that does not exist is error 3701.
-- run
CREATE TABLE t (id INT)
-- run
DROP INDEX t.ix_no_existe
-- expect
error 3701
