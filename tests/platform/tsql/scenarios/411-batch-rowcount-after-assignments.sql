-- SET @v makes @@ROWCOUNT 1; SELECT @v = column FROM t makes it the rows read.
-- run
CREATE TABLE t (id INT, n INT)
-- run
INSERT INTO t VALUES (1, 0) INSERT INTO t VALUES (2, 5) INSERT INTO t VALUES (3, 7) INSERT INTO t VALUES (4, 7)
-- run
DECLARE @v INT, @a INT, @b INT SELECT @v = n FROM t SET @a = @@ROWCOUNT SET @v = 1 SET @b = @@ROWCOUNT SELECT @a, @b
-- expect
rowset
row 4|1
end
