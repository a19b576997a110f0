-- Deleting every row does not restart the identity; TRUNCATE TABLE does.
-- run
CREATE TABLE t (id INT IDENTITY(1,1), n INT)
-- run
INSERT INTO t (n) VALUES (1)
-- expect
count 1
-- run
DELETE FROM t
-- expect
count 1
-- run
INSERT INTO t (n) VALUES (2)
-- expect
count 1
-- run
SELECT id FROM t
-- expect
rowset
row 2
end
-- run
TRUNCATE TABLE t
-- run
INSERT INTO t (n) VALUES (3)
-- expect
count 1
-- run
SELECT id FROM t
-- expect
rowset
row 1
end
