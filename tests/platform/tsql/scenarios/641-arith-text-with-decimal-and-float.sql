-- A text in arithmetic with a DECIMAL, MONEY or FLOAT operand is read as that type and the
-- operation is of it: a column's text plus a DECIMAL adds with the DECIMAL's scale, with MONEY
-- keeps four places, with a FLOAT adds reals, with a literal 1.5 is read as its DECIMAL(2,1) ('1.25' as 1.3); a word is 8114.
-- run
CREATE TABLE lineas (id INT, cantidad VARCHAR(10), precio DECIMAL(8,2), tarifa MONEY, factor FLOAT)
-- run
INSERT INTO lineas VALUES (1, '3', 2.50, 1.2345, 0.5)
INSERT INTO lineas VALUES (2, '1.25', 4, 2, 2)
-- run
SELECT cantidad * precio, cantidad + precio, cantidad * tarifa, cantidad * factor, cantidad * 1.5 FROM lineas ORDER BY id
-- expect
rowset
row 7.5|5.5|3.7035|1.5|4.5
row 5|5.25|2.5|2.5|1.95
end
-- run
SELECT SUM(cantidad * precio) FROM lineas
-- expect
rowset
row 12.5
end
-- run
UPDATE lineas SET cantidad = 'dos' WHERE id = 2
-- run
SELECT cantidad * precio FROM lineas
-- expect
error 8114
