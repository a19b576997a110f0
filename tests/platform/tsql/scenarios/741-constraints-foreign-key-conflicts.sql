-- A FOREIGN KEY constraint holds on every write: a row whose key has no referenced row (INSERT
-- or UPDATE, 547 naming the FOREIGN KEY constraint and the referenced table's column) and a
-- referenced row that is deleted or changed while rows refer to it (547 naming the REFERENCE
-- constraint and the referring table's column) are refused; a NULL key refers to nothing.
-- run
CREATE TABLE padre (id INT PRIMARY KEY, nombre VARCHAR(20) NOT NULL)
CREATE TABLE hijo (id INT PRIMARY KEY, padre_id INT NULL CONSTRAINT fk_hijo_padre REFERENCES padre (id))
INSERT INTO padre VALUES (1, 'uno')
INSERT INTO padre VALUES (2, 'dos')
INSERT INTO hijo VALUES (10, 1)
-- run
INSERT INTO hijo VALUES (11, 3)
-- expect
error 547
-- run
BEGIN TRY
  INSERT INTO hijo VALUES (11, 3)
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
BEGIN TRY
  UPDATE hijo SET padre_id = 4 WHERE id = 10
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
BEGIN TRY
  DELETE FROM padre WHERE id = 1
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
BEGIN TRY
  UPDATE padre SET id = 5 WHERE id = 1
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
-- expect
rowset
row 547|Instrucción INSERT en conflicto con la restricción FOREIGN KEY "fk_hijo_padre". El conflicto ha aparecido en la base de datos "escenario", tabla "dbo.padre", column 'id'.
end
rowset
row 547|Instrucción UPDATE en conflicto con la restricción FOREIGN KEY "fk_hijo_padre". El conflicto ha aparecido en la base de datos "escenario", tabla "dbo.padre", column 'id'.
end
rowset
row 547|Instrucción DELETE en conflicto con la restricción REFERENCE "fk_hijo_padre". El conflicto ha aparecido en la base de datos "escenario", tabla "dbo.hijo", column 'padre_id'.
end
rowset
row 547|Instrucción UPDATE en conflicto con la restricción REFERENCE "fk_hijo_padre". El conflicto ha aparecido en la base de datos "escenario", tabla "dbo.hijo", column 'padre_id'.
end
-- run
INSERT INTO hijo VALUES (11, NULL)
INSERT INTO hijo VALUES (12, 2)
UPDATE hijo SET padre_id = 1 WHERE id = 11
DELETE FROM hijo WHERE id = 12
DELETE FROM padre WHERE id = 2
UPDATE padre SET nombre = 'UNO' WHERE id = 1
-- expect
count 1
count 1
count 1
count 1
count 1
count 1
-- run
DELETE FROM padre
-- expect
error 547
-- run
INSERT INTO hijo VALUES (13, 1)
INSERT INTO hijo VALUES (14, 9)
INSERT INTO hijo VALUES (15, 1)
-- expect
error 547
-- run
DELETE FROM hijo WHERE id = 13
-- expect
count 1
-- run
SELECT (SELECT COUNT(*) FROM padre), (SELECT COUNT(*) FROM hijo), (SELECT MAX(nombre) FROM padre)
-- expect
rowset
row 1|2|UNO
end
