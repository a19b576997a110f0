-- A text longer than its VARCHAR(n) column is error 8152 on UPDATE.
-- run
CREATE TABLE t (s VARCHAR(5))
-- run
INSERT INTO t VALUES ('abc')
-- run
UPDATE t SET s = s + 'def'
-- expect
error 8152
-- run
SELECT s FROM t
-- expect
rowset
row abc
end
