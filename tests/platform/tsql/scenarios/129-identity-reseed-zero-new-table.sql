-- RESEED 0 on a table never inserted into makes the next identity 0.
-- run
CREATE TABLE t (id INT IDENTITY(1,1), n INT)
-- run
DBCC CHECKIDENT ('t', RESEED, 0)
-- run
INSERT INTO t (n) VALUES (1)
-- expect
count 1
-- run
SELECT id FROM t
-- expect
rowset
row 0
end
