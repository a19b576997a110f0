-- A value below the current identity written with IDENTITY_INSERT ON leaves the identity where it was.
-- run
CREATE TABLE t (id INT IDENTITY(1,1), n INT)
-- run
INSERT INTO t (n) VALUES (1)
-- run
INSERT INTO t (n) VALUES (2)
-- run
INSERT INTO t (n) VALUES (3)
-- run
DELETE FROM t WHERE id = 2
-- run
SET IDENTITY_INSERT t ON
-- run
INSERT INTO t (id, n) VALUES (2, 3)
-- expect
count 1
-- run
SELECT @@IDENTITY
-- expect
rowset
row 2
end
-- run
SET IDENTITY_INSERT t OFF
-- run
INSERT INTO t (n) VALUES (4)
-- run
SELECT id FROM t WHERE n = 4
-- expect
rowset
row 4
end
