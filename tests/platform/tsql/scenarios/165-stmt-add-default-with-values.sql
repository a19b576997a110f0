-- ALTER TABLE ADD ... DEFAULT x WITH VALUES fills the existing rows of a NULL column.
-- run
CREATE TABLE t (id INT)
-- run
INSERT INTO t VALUES (1)
-- run
ALTER TABLE t ADD c INT NULL DEFAULT 5 WITH VALUES
-- run
SELECT c FROM t
-- expect
rowset
row 5
end
