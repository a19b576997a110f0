-- An ELSE that follows no IF is error 156, and nothing of the batch runs.
-- run
CREATE TABLE t (n INT)
-- run
INSERT INTO t VALUES (1) ELSE INSERT INTO t VALUES (2)
-- expect
error 156
-- run
SELECT COUNT(*) FROM t
-- expect
rowset
row 0
end
