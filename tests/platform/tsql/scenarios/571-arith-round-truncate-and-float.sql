-- ROUND's third argument cuts instead of rounding when it is not 0; a FLOAT rounds to places
-- and to tens as a decimal does; an integer column stays an integer.
-- run
CREATE TABLE medidas (id INT, largo FLOAT, piezas SMALLINT, precio DECIMAL(10,3))
-- run
INSERT INTO medidas VALUES (1, 2.567, 15, 123.456)
INSERT INTO medidas VALUES (2, -1234.5, -19, -9.999)
-- run
SELECT id, ROUND(largo, 1), ROUND(largo, 1, 1), ROUND(largo, -2), ROUND(piezas, -1),
       ROUND(piezas, -1, 1), ROUND(precio, 2), ROUND(precio, 2, 1), ROUND(precio, 0, 5)
FROM medidas ORDER BY id
-- expect
rowset
row 1|2.6|2.5|0|20|10|123.46|123.45|123
row 2|-1234.5|-1234.5|-1200|-20|-10|-10|-9.99|-9
end
-- run
SELECT ROUND(largo) FROM medidas
-- expect
error 174
