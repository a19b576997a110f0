-- The 547 text of a CHECK names its one column for UPDATE and for ALTER TABLE ... ADD over rows
-- that break it; a CHECK over several columns names none.
-- run
CREATE TABLE existencias (id INT PRIMARY KEY, minimo INT, maximo INT, CONSTRAINT CK_Existencias_Rango CHECK (minimo <= maximo))
INSERT INTO existencias VALUES (1, 1, 9)
-- run
BEGIN TRY
  UPDATE existencias SET minimo = 10 WHERE id = 1
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
BEGIN TRY
  ALTER TABLE existencias ADD CONSTRAINT CK_Existencias_Maximo CHECK (maximo < 5)
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
-- expect
rowset
row 547|Instrucción UPDATE en conflicto con la restricción CHECK "CK_Existencias_Rango". El conflicto ha aparecido en la base de datos "escenario", tabla "dbo.existencias".
end
rowset
row 547|Instrucción ALTER TABLE en conflicto con la restricción CHECK "CK_Existencias_Maximo". El conflicto ha aparecido en la base de datos "escenario", tabla "dbo.existencias", column 'maximo'.
end
-- run
ALTER TABLE existencias ADD CONSTRAINT CK_Existencias_Maximo CHECK (maximo < 50)
-- run
BEGIN TRY
  UPDATE existencias SET maximo = 60 WHERE id = 1
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
-- expect
rowset
row 547|Instrucción UPDATE en conflicto con la restricción CHECK "CK_Existencias_Maximo". El conflicto ha aparecido en la base de datos "escenario", tabla "dbo.existencias", column 'maximo'.
end
