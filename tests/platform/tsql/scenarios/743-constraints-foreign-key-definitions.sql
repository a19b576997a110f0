-- ALTER TABLE ADD CONSTRAINT ... FOREIGN KEY checks the rows already there (547, naming the
-- ALTER TABLE statement) and holds from then on; DROP CONSTRAINT takes it away. A table that a
-- FOREIGN KEY of another table references cannot be dropped (3726) nor truncated (4712),
-- whether or not rows refer to it; once the constraint goes, it can.
-- run
CREATE TABLE familia (codigo INT PRIMARY KEY, nombre VARCHAR(20) NULL)
CREATE TABLE articulo (codigo INT PRIMARY KEY, familia INT NULL)
INSERT INTO familia VALUES (1, 'una')
INSERT INTO articulo VALUES (1, 1)
INSERT INTO articulo VALUES (2, 9)
-- run
BEGIN TRY
  ALTER TABLE articulo ADD CONSTRAINT fk_articulo_familia FOREIGN KEY (familia) REFERENCES familia (codigo)
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
INSERT INTO articulo VALUES (3, 8)
-- expect
rowset
row 547|Instrucción ALTER TABLE en conflicto con la restricción FOREIGN KEY "fk_articulo_familia". El conflicto ha aparecido en la base de datos "escenario", tabla "dbo.familia", column 'codigo'.
end
count 1
-- run
UPDATE articulo SET familia = NULL WHERE familia > 1
-- expect
count 2
-- run
ALTER TABLE articulo ADD CONSTRAINT fk_articulo_familia FOREIGN KEY (familia) REFERENCES dbo.familia (codigo)
-- run
SELECT codigo, familia FROM articulo ORDER BY codigo
-- expect
rowset
row 1|1
row 2|NULL
row 3|NULL
end
-- run
INSERT INTO articulo VALUES (4, 7)
-- expect
error 547
-- run
DROP TABLE familia
-- expect
error 3726
-- run
BEGIN TRY
  DROP TABLE familia
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
-- expect
rowset
row 3726|No se puede quitar el objeto 'familia' porque se hace referencia a él en una restricción FOREIGN KEY.
end
-- run
DELETE FROM articulo
-- expect
count 3
-- run
TRUNCATE TABLE familia
-- expect
error 4712
-- run
ALTER TABLE articulo DROP CONSTRAINT fk_articulo_familia
-- run
INSERT INTO articulo VALUES (4, 7)
TRUNCATE TABLE familia
-- expect
count 1
-- run
DROP TABLE familia
-- run
SELECT codigo, familia FROM articulo
-- expect
rowset
row 4|7
end
