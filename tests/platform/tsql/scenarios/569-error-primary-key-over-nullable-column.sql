-- ALTER TABLE ADD PRIMARY KEY over a column that accepts NULL is error 8111 and leaves the
-- table without a key; over NOT NULL columns the key holds (a duplicate is 2627).
-- run
CREATE TABLE t (a INT, b INT NOT NULL)
-- run
INSERT INTO t VALUES (1, 1)
-- run
ALTER TABLE t ADD CONSTRAINT pk_t PRIMARY KEY (a)
-- expect
error 8111
-- run
INSERT INTO t VALUES (1, 2)
-- run
ALTER TABLE t ADD CONSTRAINT pk_t PRIMARY KEY (b)
-- run
INSERT INTO t VALUES (3, 2)
-- expect
error 2627
-- run
SELECT COUNT(*) FROM t
-- expect
rowset
row 2
end
