-- IDENT_CURRENT answers the last identity value handed out, also one an insert took in a
-- transaction rolled back (whole, to a savepoint, or by an error under XACT_ABORT): such a value
-- stays taken, the next insert goes past it.
-- run
CREATE TABLE vales (id INT IDENTITY(100, 5) PRIMARY KEY, nombre VARCHAR(10))
-- run
BEGIN TRAN
INSERT INTO vales (nombre) VALUES ('uno')
ROLLBACK
SELECT IDENT_CURRENT('vales'), COUNT(*) FROM vales
-- expect
count 1
rowset
row 100|0
end
-- run
INSERT INTO vales (nombre) VALUES ('dos')
SELECT IDENT_CURRENT('vales'), MAX(id) FROM vales
-- expect
count 1
rowset
row 105|105
end
-- run
BEGIN TRAN
INSERT INTO vales (nombre) VALUES ('tres')
INSERT INTO vales (nombre) VALUES ('cuatro')
ROLLBACK TRAN
-- expect
count 1
count 1
-- run
SELECT IDENT_CURRENT('vales')
-- expect
rowset
row 115
end
-- run
BEGIN TRAN
SAVE TRANSACTION antes
INSERT INTO vales (nombre) VALUES ('cinco')
ROLLBACK TRANSACTION antes
COMMIT
SELECT IDENT_CURRENT('vales'), COUNT(*) FROM vales
-- expect
count 1
rowset
row 120|1
end
-- run
BEGIN TRY
  BEGIN TRAN
  INSERT INTO vales (nombre) VALUES ('seis')
  THROW 50001, 'Vale rechazado.', 1
  COMMIT
END TRY
BEGIN CATCH
  IF @@TRANCOUNT > 0 ROLLBACK
  SELECT ERROR_NUMBER(), IDENT_CURRENT('vales')
END CATCH
-- expect
count 1
rowset
row 50001|125
end
-- run
INSERT INTO vales (nombre) VALUES ('siete')
SELECT id FROM vales ORDER BY id
-- expect
count 1
rowset
row 105
row 130
end
-- run
CREATE TABLE tickets (id INT IDENTITY, nombre VARCHAR(10))
-- run
INSERT INTO tickets (nombre) VALUES ('uno')
BEGIN TRAN
INSERT INTO tickets (nombre) VALUES ('dos')
INSERT INTO tickets (nombre) VALUES ('tres')
ROLLBACK
SELECT IDENT_CURRENT('tickets'), @@IDENTITY
-- expect
count 1
count 1
count 1
rowset
row 3|3
end
-- run
INSERT INTO tickets (nombre) VALUES ('cuatro')
SELECT id FROM tickets ORDER BY id
-- expect
count 1
rowset
row 1
row 4
end
