-- The 547 text of a CHECK over one column names that column after the table, as SQL Server's
-- does for a column's CHECK and for a table's CHECK that names one column.
-- run
CREATE TABLE pedidos_cliente (id INT PRIMARY KEY, cantidad INT CONSTRAINT ck_cantidad CHECK (cantidad > 0), maximo INT)
ALTER TABLE pedidos_cliente ADD CONSTRAINT ck_pedidos_maximo CHECK (maximo < 100)
-- run
BEGIN TRY
  INSERT INTO pedidos_cliente VALUES (4, 2, 150)
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
-- expect
rowset
row 547|Instrucción INSERT en conflicto con la restricción CHECK "ck_pedidos_maximo". El conflicto ha aparecido en la base de datos "escenario", tabla "dbo.pedidos_cliente", column 'maximo'.
end
-- run
BEGIN TRY
  INSERT INTO pedidos_cliente VALUES (5, 0, 1)
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
-- expect
rowset
row 547|Instrucción INSERT en conflicto con la restricción CHECK "ck_cantidad". El conflicto ha aparecido en la base de datos "escenario", tabla "dbo.pedidos_cliente", column 'cantidad'.
end
