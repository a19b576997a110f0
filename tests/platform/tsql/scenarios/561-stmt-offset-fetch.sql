-- ORDER BY ... OFFSET n ROWS [FETCH NEXT m ROWS ONLY] pages through the ordered rows, in a
-- subquery too; SQL Server's refusals of the counts keep their numbers, and a column named
-- [Offset] is still a column.
-- run
CREATE TABLE t (id INT, [Offset] INT)
-- run
INSERT INTO t VALUES (1, 10)
INSERT INTO t VALUES (2, 20)
INSERT INTO t VALUES (3, 30)
INSERT INTO t VALUES (4, 40)
-- run
SELECT id FROM t ORDER BY id DESC OFFSET 1 ROWS FETCH NEXT 2 ROWS ONLY
-- expect
rowset
row 3
row 2
end
-- run
SELECT id FROM t ORDER BY id OFFSET 2 ROW
-- expect
rowset
row 3
row 4
end
-- run
SELECT SUM(id) FROM (SELECT id FROM t ORDER BY [Offset] OFFSET 0 ROWS FETCH FIRST 3 ROWS ONLY) x
-- expect
rowset
row 6
end
-- run
SELECT [Offset] FROM t WHERE id = 4
-- expect
rowset
row 40
end
-- run
SELECT id FROM t ORDER BY id OFFSET -1 ROWS
-- expect
error 10742
-- run
SELECT id FROM t ORDER BY id OFFSET 1 ROWS FETCH NEXT 0 ROWS ONLY
-- expect
error 10744
-- run
SELECT TOP 2 id FROM t ORDER BY id OFFSET 1 ROWS
-- expect
error 10741
-- run
SELECT id FROM t OFFSET 1 ROWS
-- expect
error 102
