-- An identity without PRIMARY KEY or UNIQUE holds one value twice: written under
-- IDENTITY_INSERT, or handed out again after DBCC CHECKIDENT RESEED below the values.
-- gap sqlite: INSERT INTO t (id, n) VALUES (1, 2) answers error 102 (refused, naming the construct: the identity is SQLite's row id), not count 1
-- run
CREATE TABLE t (id INT IDENTITY(1,1), n INT)
-- run
INSERT INTO t (n) VALUES (1)
-- expect
count 1
-- run
SET IDENTITY_INSERT t ON
-- run
INSERT INTO t (id, n) VALUES (1, 2)
-- expect
count 1
-- run
SET IDENTITY_INSERT t OFF
-- run
DBCC CHECKIDENT ('t', RESEED, 0)
-- run
INSERT INTO t (n) VALUES (3)
-- expect
count 1
-- run
SELECT id, n FROM t ORDER BY n
-- expect
rowset
row 1|1
row 1|2
row 1|3
end
