-- A CHECK declared without a name is named CK__, the table cut to nine characters, __, the
-- column it is declared on (or the one column a table's CHECK names) cut to what thirty
-- characters leave, __ and eight hexadecimal digits; a table's CHECK over several columns
-- CK__<table>__ and the digits. The 547 text names the constraint, the database and the table.
-- ALTER TABLE ... ADD CONSTRAINT ... CHECK checks the rows there (547, the table left as it
-- was), DROP CONSTRAINT takes a check off.
-- run
CREATE TABLE pedidos_cliente (id INT PRIMARY KEY, cantidad INT CHECK (cantidad > 0), minimo INT, maximo INT, CHECK (minimo <= maximo))
INSERT INTO pedidos_cliente VALUES (1, 5, 1, 9)
-- run
BEGIN TRY
  INSERT INTO pedidos_cliente VALUES (2, 0, 1, 9)
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), CASE WHEN ERROR_MESSAGE() LIKE 'Instrucción INSERT en conflicto con la restricción CHECK "CK[_][_]pedidos_c[_][_]canti[_][_]________". El conflicto ha aparecido en la base de datos "escenario", tabla "dbo.pedidos_cliente"%' THEN 1 ELSE 0 END
END CATCH
BEGIN TRY
  UPDATE pedidos_cliente SET minimo = 10 WHERE id = 1
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), CASE WHEN ERROR_MESSAGE() LIKE 'Instrucción UPDATE en conflicto con la restricción CHECK "CK[_][_]pedidos_c[_][_]________". %' THEN 1 ELSE 0 END
END CATCH
-- expect
rowset
row 547|1
end
rowset
row 547|1
end
-- run
ALTER TABLE pedidos_cliente ADD CONSTRAINT ck_pedidos_maximo CHECK (maximo < 5)
-- expect
error 547
-- run
INSERT INTO pedidos_cliente VALUES (3, 2, 1, 7)
SELECT COUNT(*) FROM pedidos_cliente
-- expect
count 1
rowset
row 2
end
-- run
ALTER TABLE pedidos_cliente ADD CONSTRAINT ck_pedidos_maximo CHECK (maximo < 100 AND ISNULL(maximo, 0) <> 42)
-- run
INSERT INTO pedidos_cliente VALUES (4, 2, 1, 42)
-- expect
error 547
-- run
ALTER TABLE pedidos_cliente DROP CONSTRAINT ck_pedidos_maximo
-- run
INSERT INTO pedidos_cliente VALUES (4, 2, 1, 150)
SELECT id, maximo FROM pedidos_cliente ORDER BY id
-- expect
count 1
rowset
row 1|9
row 3|7
row 4|150
end
