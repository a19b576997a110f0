-- ALTER TABLE ADD of a NOT NULL column with a default fills the existing rows.
-- run
CREATE TABLE t (id INT)
-- run
INSERT INTO t VALUES (1)
-- run
ALTER TABLE t ADD c INT NOT NULL DEFAULT 5
-- run
SELECT c FROM t
-- expect
rowset
row 5
end
