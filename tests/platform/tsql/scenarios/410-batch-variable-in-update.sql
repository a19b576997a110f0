-- A variable in an UPDATE's SET list and WHERE clause.
-- run
CREATE TABLE t (id INT, n INT)
-- run
INSERT INTO t VALUES (1, 0) INSERT INTO t VALUES (2, 5)
-- run
DECLARE @inc INT = 10, @id INT = 2 UPDATE t SET n = n + @inc WHERE id = @id SELECT n FROM t ORDER BY id
-- expect
count 1
rowset
row 0
row 15
end
