-- ISDATE of a DATETIME column is 1 for each date and 0 for NULL.
-- run
CREATE TABLE t (id INT, d DATETIME)
-- run
INSERT INTO t VALUES (1, '20240228')
INSERT INTO t VALUES (2, NULL)
-- run
SELECT id, ISDATE(d) FROM t ORDER BY id
-- expect
rowset
row 1|1
row 2|0
end
