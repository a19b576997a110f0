-- A text longer than its VARCHAR(n) column is error 8152 on INSERT.
-- gap sqlite: INSERT INTO t VALUES ('abcdef') answers count 1, not error 8152
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
