-- Creating an index whose name the table already has is error 1913.
-- run
CREATE TABLE t (id INT)
-- run
CREATE INDEX ix_t ON t (id)
-- run
CREATE INDEX ix_t ON t (id)
-- expect
error 1913
