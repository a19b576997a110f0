-- After a failed statement the session goes on with the next batch.
-- gap sqlite: INSERT INTO t VALUES (NULL) answers error 1299, not error 515
-- gap postgres: INSERT INTO t VALUES (NULL) answers error, not error 515
-- run
CREATE TABLE t (id INT NOT NULL)
-- run
INSERT INTO t VALUES (NULL)
-- expect
error 515
-- run
INSERT INTO t VALUES (2)
-- expect
count 1
-- run
SELECT id FROM t
-- expect
rowset
row 2
end
