-- The 2627 text names a PRIMARY KEY or UNIQUE constraint as the application wrote its name;
-- DROP CONSTRAINT finds it by its name written in any case.
-- gap sqlite: the 2627 text names neither the constraint nor the value (SQLite tells neither)
-- run
CREATE TABLE clientes (id INT CONSTRAINT PK_Clientes PRIMARY KEY, codigo VARCHAR(10) CONSTRAINT UQ_Clientes_Codigo UNIQUE)
INSERT INTO clientes VALUES (1, 'A')
-- run
BEGIN TRY
  INSERT INTO clientes VALUES (1, 'B')
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
BEGIN TRY
  INSERT INTO clientes VALUES (2, 'A')
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
-- expect
rowset
row 2627|Infracción de la restricción PRIMARY KEY 'PK_Clientes'. No se puede insertar una clave duplicada en el objeto 'dbo.clientes'. El valor de la clave duplicada es (1).
end
rowset
row 2627|Infracción de la restricción UNIQUE KEY 'UQ_Clientes_Codigo'. No se puede insertar una clave duplicada en el objeto 'dbo.clientes'. El valor de la clave duplicada es (A).
end
-- run
ALTER TABLE clientes DROP CONSTRAINT uq_clientes_codigo
INSERT INTO clientes VALUES (2, 'A')
-- expect
count 1
