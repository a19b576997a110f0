-- SELECT @v = column from a query without rows leaves the variable as it was.
-- run
CREATE TABLE t (id INT, n INT)
-- run
INSERT INTO t VALUES (1, 10)
-- run
DECLARE @v INT SET @v = 5 SELECT @v = n FROM t WHERE id = 99 SELECT @v
-- expect
rowset
row 5
end
