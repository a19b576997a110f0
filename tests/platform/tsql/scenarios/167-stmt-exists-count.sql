-- SELECT with IF EXISTS on an empty table.
-- run
CREATE TABLE t (n INT)
-- run
IF NOT EXISTS (SELECT * FROM t) INSERT INTO t VALUES (1)
-- run
SELECT COUNT(*) FROM t
-- expect
rowset
row 1
end
