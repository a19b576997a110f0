-- A text longer than its VARCHAR(n) column is error 8152 on INSERT.
-- run
CREATE TABLE t (s VARCHAR(5))
-- run
INSERT INTO t VALUES ('abcdef')
-- expect
error 8152
-- run
SELECT COUNT(*) FROM t
-- expect
rowset
row 0
end
