-- An error inside TRY dooms the open transaction but does not end it: the reads of CATCH and
-- those after it, until ROLLBACK, see the transaction's own changes (the failing statement
-- undone whole, rows it changed before failing included; after THROW too), a failing read
-- in a nested TRY leaves them as they were, ROLLBACK keeps nothing of the transaction, and a
-- batch ending with it doomed rolls it back with 3998.
-- run
CREATE TABLE v (id INT PRIMARY KEY, nombre VARCHAR(20) NOT NULL)
INSERT INTO v VALUES (1, 'uno')
INSERT INTO v VALUES (2, 'dos')
-- run
BEGIN TRAN
BEGIN TRY
  INSERT INTO v VALUES (3, 'tres')
  UPDATE v SET nombre = 'UNO' WHERE id = 1
  UPDATE v SET nombre = CAST(10 / (2 - id) AS VARCHAR(20))
END TRY
BEGIN CATCH
  SELECT XACT_STATE(), @@TRANCOUNT, ERROR_NUMBER()
  SELECT id, nombre FROM v ORDER BY id
END CATCH
SELECT @@TRANCOUNT, COUNT(*) FROM v
ROLLBACK
SELECT @@TRANCOUNT, id, nombre FROM v ORDER BY id
-- expect
count 1
count 1
rowset
row -1|1|8134
end
rowset
row 1|UNO
row 2|dos
row 3|tres
end
rowset
row 1|3
end
rowset
row 0|1|uno
row 0|2|dos
end
-- run
DECLARE @n INT
BEGIN TRAN
BEGIN TRY
  DELETE FROM v WHERE id = 2
  INSERT INTO v VALUES (1, 'repetido')
END TRY
BEGIN CATCH
  BEGIN TRY
    SET @n = 1 / 0
  END TRY
  BEGIN CATCH
    SELECT ERROR_NUMBER(), XACT_STATE()
  END CATCH
  SELECT COUNT(*), MAX(id) FROM v
  IF EXISTS (SELECT * FROM v WHERE id = 2) SELECT 'visible'
  ELSE SELECT 'borrada'
END CATCH
IF XACT_STATE() = -1 ROLLBACK
SELECT @@TRANCOUNT, COUNT(*) FROM v
-- expect
count 1
rowset
row 8134|-1
end
rowset
row 1|1
end
rowset
row borrada
end
rowset
row 0|2
end
-- run
BEGIN TRAN
BEGIN TRY
  INSERT INTO v VALUES (6, 'seis')
  THROW 50001, 'a mano', 1
END TRY
BEGIN CATCH
  SELECT XACT_STATE(), COUNT(*) FROM v
END CATCH
ROLLBACK
SELECT COUNT(*) FROM v
-- expect
count 1
rowset
row -1|3
end
rowset
row 2
end
-- run
BEGIN TRAN
BEGIN TRY
  INSERT INTO v VALUES (4, 'cuatro')
  INSERT INTO v VALUES (5, NULL)
END TRY
BEGIN CATCH
  SELECT COUNT(*) FROM v
END CATCH
-- expect
error 3998
-- run
SELECT @@TRANCOUNT, COUNT(*) FROM v
-- expect
rowset
row 0|2
end
