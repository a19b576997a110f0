-- A BIT column's value given to an INT, FLOAT or VARCHAR variable is 1 or 0.
-- run
CREATE TABLE t (id INT, b BIT)
-- run
INSERT INTO t VALUES (1, 1)
INSERT INTO t VALUES (2, 0)
-- run
DECLARE @n INT
DECLARE @f FLOAT
DECLARE @s VARCHAR(5)
SELECT @n = b, @f = b, @s = b FROM t WHERE id = 1
SELECT @n, @f, @s
SELECT @n = b, @f = b, @s = b FROM t WHERE id = 2
SELECT @n, @f, @s
-- expect
rowset
row 1|1|1
end
rowset
row 0|0|0
end
