-- A NULL column added with a default leaves the existing rows NULL and gives the default to the rows inserted afterwards, a text or date default too.
-- run
CREATE TABLE t (id INT)
-- run
INSERT INTO t VALUES (1)
-- run
ALTER TABLE t ADD estado VARCHAR(10) DEFAULT ('alta')
-- run
ALTER TABLE t ADD [fecha alta] DATETIME NULL DEFAULT GETDATE()
-- run
INSERT INTO t (id) VALUES (2)
-- run
SELECT id, estado, CASE WHEN [fecha alta] IS NULL THEN 0 ELSE 1 END FROM t ORDER BY id
-- expect
rowset
row 1|NULL|0
row 2|alta|1
end
-- run
SELECT COUNT(*) FROM t WHERE estado = 'ALTA'
-- expect
rowset
row 1
end
