-- A blank text has no DECIMAL reading: storing it in a DECIMAL column is error 8114.
-- run
CREATE TABLE t (id INT, n DECIMAL(10,2))
-- run
INSERT INTO t VALUES (1, '')
-- expect
error 8114
-- run
INSERT INTO t VALUES (2, 1.5)
-- run
UPDATE t SET n = '' WHERE id = 2
-- expect
error 8114
-- run
SELECT COUNT(*) FROM t WHERE n = 1.5
-- expect
rowset
row 1
end
