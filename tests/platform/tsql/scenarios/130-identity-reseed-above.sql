-- RESEED above the highest value makes the next identity follow it.
-- run
CREATE TABLE t (id INT IDENTITY(1,1), n INT)
-- run
INSERT INTO t (n) VALUES (1)
-- expect
count 1
-- run
DBCC CHECKIDENT ('t', RESEED, 10)
-- run
INSERT INTO t (n) VALUES (2)
-- expect
count 1
-- run
SELECT @@IDENTITY
-- expect
rowset
row 11
end
