-- A text compared with an integer is converted to the integer's type, as SQL Server's data
-- type precedence says: '10' > 9 holds (texts would say otherwise), IN lists, BETWEEN and CASE
-- conditions alike, a variable or literal on either side; a stored text that is no number is
-- error 245 once a row reaches the comparison. A SET keeps its assignment.
-- run
CREATE TABLE productos (ref VARCHAR(10), stock INT)
-- run
INSERT INTO productos VALUES ('10', 3)
INSERT INTO productos VALUES (' 9', 4)
INSERT INTO productos VALUES ('100', 5)
-- run
SELECT stock FROM productos WHERE ref > 9 ORDER BY stock
-- expect
rowset
row 3
row 5
end
-- run
SELECT stock FROM productos WHERE ref IN (9, 100) OR 10 = ref ORDER BY stock
-- expect
rowset
row 3
row 4
row 5
end
-- run
DECLARE @desde INT
SET @desde = 10
SELECT COUNT(CASE WHEN ref BETWEEN @desde AND 99 THEN 1 END) FROM productos
-- expect
rowset
row 1
end
-- run
UPDATE productos SET ref = 11 WHERE ref = 10
-- expect
count 1
-- run
SELECT ref FROM productos WHERE stock = '3'
-- expect
rowset
row 11
end
-- run
INSERT INTO productos VALUES ('abc', 6)
-- run
SELECT stock FROM productos WHERE ref = 11
-- expect
error 245
