-- After RESEED below the highest value, each refused duplicate still uses up its identity value.
-- run
CREATE TABLE t (id INT IDENTITY(1,1) PRIMARY KEY, n INT)
-- run
INSERT INTO t (n) VALUES (1)
-- run
INSERT INTO t (n) VALUES (2)
-- run
INSERT INTO t (n) VALUES (3)
-- run
DBCC CHECKIDENT ('t', RESEED, 1)
-- run
INSERT INTO t (n) VALUES (4)
-- expect
error 2627
-- run
INSERT INTO t (n) VALUES (5)
-- expect
error 2627
-- run
INSERT INTO t (n) VALUES (6)
-- expect
count 1
-- run
SELECT id, n FROM t ORDER BY id
-- expect
rowset
row 1|1
row 2|2
row 3|3
row 4|6
end
