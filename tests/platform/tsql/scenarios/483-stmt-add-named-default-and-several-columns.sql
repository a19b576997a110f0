-- ALTER TABLE ADD with a named DEFAULT constraint, or of several columns at once: a NULL column
-- leaves the rows already there NULL; a NOT NULL column or WITH VALUES fills them.
-- run
CREATE TABLE t (id INT)
-- run
INSERT INTO t (id) VALUES (1)
-- run
ALTER TABLE t ADD a INT NULL CONSTRAINT df_a DEFAULT 5
-- run
ALTER TABLE t ADD b INT NULL DEFAULT 6, c INT NOT NULL DEFAULT 7, d VARCHAR(5) NULL CONSTRAINT df_d DEFAULT 'x' WITH VALUES
-- run
INSERT INTO t (id) VALUES (2)
-- expect
count 1
-- run
SELECT id, a, b, c, d FROM t ORDER BY id
-- expect
rowset
row 1|NULL|NULL|7|x
row 2|5|6|7|x
end
