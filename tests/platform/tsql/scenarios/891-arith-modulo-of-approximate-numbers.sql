-- The remainder operator takes integer, money and decimal operands: a FLOAT or REAL operand, a
-- literal with an exponent, a column or a CAST, on either side, is error 8117 naming its type,
-- found when the batch is compiled (a TRY of the same batch does not catch it, one around EXEC
-- does).
-- run
CREATE TABLE medidas (id INT, largo FLOAT, ancho REAL, piezas INT)
INSERT INTO medidas VALUES (1, 7.5, 2.5, 7)
-- run
BEGIN TRY
  EXEC ('SELECT 5.0E0 % 2')
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
BEGIN TRY
  EXEC ('SELECT CAST(5 AS REAL) % 2')
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
-- expect
rowset
row 8117|El tipo de datos float del operando no es válido para el operador modulo.
end
rowset
row 8117|El tipo de datos real del operando no es válido para el operador modulo.
end
-- run
SELECT 7 % CAST(2 AS FLOAT)
-- expect
error 8117
-- run
SELECT largo % 2 FROM medidas
-- expect
error 8117
-- run
SELECT id FROM medidas WHERE piezas % ancho = 0
-- expect
error 8117
-- run
DECLARE @f FLOAT = 9
SELECT @f % 4
-- expect
error 8117
-- run
SELECT piezas % 4, 7.5 % 2, CAST(7 AS MONEY) % 2 FROM medidas
-- expect
rowset
row 3|1.5|1
end
