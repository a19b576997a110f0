-- SET @v = (subquery) takes the subquery's value, NULL when it returns no row.
-- run
CREATE TABLE t (id INT, n INT)
-- run
INSERT INTO t VALUES (1, 0) INSERT INTO t VALUES (2, 5) INSERT INTO t VALUES (3, 7)
-- run
DECLARE @m INT, @x INT SET @m = (SELECT MAX(n) FROM t) SET @x = 4 SET @x = (SELECT n FROM t WHERE id = 99) SELECT @m, @x
-- expect
rowset
row 7|NULL
end
