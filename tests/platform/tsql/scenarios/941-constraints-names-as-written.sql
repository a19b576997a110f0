-- The 547 text names a CHECK or FOREIGN KEY constraint as the application wrote its name, and
-- DROP CONSTRAINT finds it by its name written in any case.
-- run
CREATE TABLE pedidos (id INT PRIMARY KEY, maximo INT CONSTRAINT CK_Pedidos_Maximo CHECK (maximo < 100))
CREATE TABLE lineas (id INT, pedido INT, CONSTRAINT FK_Lineas_Pedidos FOREIGN KEY (pedido) REFERENCES pedidos (id))
INSERT INTO pedidos VALUES (1, 5)
-- run
BEGIN TRY
  INSERT INTO pedidos VALUES (2, 150)
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
BEGIN TRY
  INSERT INTO lineas VALUES (1, 7)
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
-- expect
rowset
row 547|Instrucción INSERT en conflicto con la restricción CHECK "CK_Pedidos_Maximo". El conflicto ha aparecido en la base de datos "escenario", tabla "dbo.pedidos", column 'maximo'.
end
rowset
row 547|Instrucción INSERT en conflicto con la restricción FOREIGN KEY "FK_Lineas_Pedidos". El conflicto ha aparecido en la base de datos "escenario", tabla "dbo.pedidos", column 'id'.
end
-- run
ALTER TABLE pedidos DROP CONSTRAINT ck_pedidos_maximo
ALTER TABLE lineas DROP CONSTRAINT FK_LINEAS_PEDIDOS
-- run
INSERT INTO pedidos VALUES (2, 150)
INSERT INTO lineas VALUES (1, 7)
SELECT COUNT(*) FROM pedidos
-- expect
count 1
count 1
rowset
row 2
end
-- run
ALTER TABLE pedidos DROP CONSTRAINT CK_Pedidos_Maximo
-- expect
error 3728
