-- A table with several FOREIGN KEY constraints: the 547 text names the one the statement broke
-- (the constraint, the referenced table and column) on INSERT and UPDATE of the referring
-- table, and on DELETE of a referenced row the constraint of the table whose rows refer to it.
-- A key declared without a name is named FK__, the table cut to nine characters, __, the first
-- column cut to what thirty characters leave, __ and eight hexadecimal digits.
-- run
CREATE TABLE clientes (id INT PRIMARY KEY)
CREATE TABLE articulos (codigo INT PRIMARY KEY)
CREATE TABLE ventas (id INT PRIMARY KEY, cliente INT CONSTRAINT fk_ventas_cliente REFERENCES clientes (id), articulo INT, CONSTRAINT fk_ventas_articulo FOREIGN KEY (articulo) REFERENCES articulos (codigo))
CREATE TABLE devoluciones (id INT PRIMARY KEY, articulo INT CONSTRAINT fk_devoluciones_articulo REFERENCES articulos (codigo))
INSERT INTO clientes VALUES (1)
INSERT INTO articulos VALUES (10)
INSERT INTO articulos VALUES (20)
INSERT INTO ventas VALUES (1, 1, 10)
INSERT INTO devoluciones VALUES (1, 20)
-- run
BEGIN TRY
  INSERT INTO ventas VALUES (2, 1, 99)
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
BEGIN TRY
  INSERT INTO ventas VALUES (3, 5, 10)
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
BEGIN TRY
  UPDATE ventas SET articulo = 30 WHERE id = 1
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
BEGIN TRY
  DELETE FROM articulos WHERE codigo = 10
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
BEGIN TRY
  DELETE FROM articulos WHERE codigo = 20
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
-- expect
rowset
row 547|Instrucción INSERT en conflicto con la restricción FOREIGN KEY "fk_ventas_articulo". El conflicto ha aparecido en la base de datos "escenario", tabla "dbo.articulos", column 'codigo'.
end
rowset
row 547|Instrucción INSERT en conflicto con la restricción FOREIGN KEY "fk_ventas_cliente". El conflicto ha aparecido en la base de datos "escenario", tabla "dbo.clientes", column 'id'.
end
rowset
row 547|Instrucción UPDATE en conflicto con la restricción FOREIGN KEY "fk_ventas_articulo". El conflicto ha aparecido en la base de datos "escenario", tabla "dbo.articulos", column 'codigo'.
end
rowset
row 547|Instrucción DELETE en conflicto con la restricción REFERENCE "fk_ventas_articulo". El conflicto ha aparecido en la base de datos "escenario", tabla "dbo.ventas", column 'articulo'.
end
rowset
row 547|Instrucción DELETE en conflicto con la restricción REFERENCE "fk_devoluciones_articulo". El conflicto ha aparecido en la base de datos "escenario", tabla "dbo.devoluciones", column 'articulo'.
end
-- run
CREATE TABLE movimientos_caja (id INT PRIMARY KEY, cliente_origen INT REFERENCES clientes (id), venta INT, FOREIGN KEY (venta) REFERENCES ventas (id))
-- run
BEGIN TRY
  INSERT INTO movimientos_caja VALUES (1, 7, NULL)
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), CASE WHEN ERROR_MESSAGE() LIKE '%"FK[_][_]movimient[_][_]clien[_][_]________". %tabla "dbo.clientes", column ''id''.' THEN 1 ELSE 0 END
END CATCH
BEGIN TRY
  INSERT INTO movimientos_caja VALUES (2, 1, 9)
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), CASE WHEN ERROR_MESSAGE() LIKE '%"FK[_][_]movimient[_][_]venta[_][_]________". %tabla "dbo.ventas", column ''id''.' THEN 1 ELSE 0 END
END CATCH
-- expect
rowset
row 547|1
end
rowset
row 547|1
end
-- run
SELECT COUNT(*) FROM ventas
-- expect
rowset
row 1
end
