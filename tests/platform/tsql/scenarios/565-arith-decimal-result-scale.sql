-- Arithmetic whose result is a DECIMAL takes SQL Server's precision and scale: a quotient has
-- at least six places (DECIMAL(10,2) / INT thirteen), rounded; a whole value stored in a
-- DECIMAL column still divides as a decimal; a product keeps the sum of the scales, a sum the
-- larger scale; integer literals count by their digits.
-- run
CREATE TABLE precios (importe DECIMAL(10,2), unidades INT)
-- run
INSERT INTO precios VALUES (10.00, 3)
INSERT INTO precios VALUES (2.50, 4)
-- run
SELECT importe / unidades, importe / 3, importe * 1.5, importe + 0.005 FROM precios ORDER BY unidades
-- expect
rowset
row 3.3333333333333|3.333333|15|10.005
row 0.625|0.833333|3.75|2.505
end
-- run
SELECT 1.0 / 3, 2.0 / 3, 1 / 3.0, 10.00 / 3 * 3, 0.1 + 0.2
-- expect
rowset
row 0.333333|0.666667|0.333333|9.999999|0.3
end
-- run
SELECT SUM(importe) / COUNT(*) FROM precios
-- expect
rowset
row 6.25
end
