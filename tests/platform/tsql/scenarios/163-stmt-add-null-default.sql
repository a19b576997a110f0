-- ALTER TABLE ADD of a NULL column with a default leaves the existing rows NULL.
-- run
CREATE TABLE t (id INT)
-- run
INSERT INTO t VALUES (1)
-- run
ALTER TABLE t ADD c INT NULL DEFAULT 5
-- run
SELECT c FROM t
-- expect
rowset
row NULL
end
