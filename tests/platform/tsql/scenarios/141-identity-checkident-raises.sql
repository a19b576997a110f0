-- DBCC CHECKIDENT without a value moves the identity up to the highest value, never down.
-- run
CREATE TABLE t (id INT IDENTITY(1,1), n INT)
-- run
INSERT INTO t (n) VALUES (1)
-- run
INSERT INTO t (n) VALUES (2)
-- run
DBCC CHECKIDENT ('t', RESEED, 0)
-- run
DBCC CHECKIDENT ('t')
-- run
INSERT INTO t (n) VALUES (3)
-- run
DBCC CHECKIDENT ('t', RESEED, 20)
-- run
DBCC CHECKIDENT ('t')
-- run
INSERT INTO t (n) VALUES (4)
-- run
SELECT id FROM t ORDER BY id
-- expect
rowset
row 1
row 2
row 3
row 21
end
