-- After a failed statement the session goes on with the next batch.
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
