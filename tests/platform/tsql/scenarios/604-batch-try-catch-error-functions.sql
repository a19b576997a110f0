-- An error inside TRY moves to CATCH, where ERROR_NUMBER(), ERROR_SEVERITY(), ERROR_STATE(),
-- ERROR_LINE(), ERROR_MESSAGE() and ERROR_PROCEDURE() (NULL in a batch) tell it; outside CATCH
-- they are NULL. RAISERROR of severity 11 to 19 goes to CATCH with its formatted text, of 10 or
-- less it does not; THROW without arguments raises the handled error again, and the batch goes
-- on after END CATCH.
-- run
DECLARE @x INT
BEGIN TRY
  SET @x = 1 / 0
  SELECT 'no llega'
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_SEVERITY(), ERROR_STATE(), ERROR_LINE(), ERROR_PROCEDURE()
END CATCH
SELECT ERROR_NUMBER(), ERROR_MESSAGE(), 'sigue'
-- expect
rowset
row 8134|16|1|3|NULL
end
rowset
row NULL|NULL|sigue
end
-- run
BEGIN TRY
  RAISERROR('Cliente %s sin saldo: %d', 16, 3, 'Ana', -5)
  SELECT 'no llega'
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE(), ERROR_SEVERITY(), ERROR_STATE(), ERROR_LINE()
END CATCH
-- expect
rowset
row 50000|Cliente Ana sin saldo: -5|16|3|2
end
-- run
DECLARE @formato VARCHAR(100) = '[%5s][%-4d][%04d][%x][%X][%#o][%.2s][%%][%+d][%s]'
BEGIN TRY
  RAISERROR(@formato, 11, 1, 'ab', 7, 42, 255, 255, 8, 'abcdef', 3)
END TRY
BEGIN CATCH
  SELECT ERROR_MESSAGE()
END CATCH
-- expect
rowset
row [   ab][7   ][0042][ff][FF][010][ab][%][+3][(null)]
end
-- run
BEGIN TRY
  RAISERROR('solo una nota', 10, 1)
  SELECT 'sigue'
END TRY
BEGIN CATCH
  SELECT 'no llega'
END CATCH
-- expect
rowset
row sigue
end
-- run
BEGIN TRY
  BEGIN TRY
    THROW 50010, N'dentro', 4
  END TRY
  BEGIN CATCH
    SELECT ERROR_NUMBER() AS interno;
    THROW;
  END CATCH
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE(), ERROR_STATE()
END CATCH
-- expect
rowset
row 50010
end
rowset
row 50010|dentro|4
end
-- run
BEGIN TRY
  THROW 50020, 'primero', 1
END TRY
BEGIN CATCH
  BEGIN TRY
    THROW 50021, 'segundo', 1
  END TRY
  BEGIN CATCH
    SELECT ERROR_NUMBER(), ERROR_MESSAGE()
  END CATCH
  SELECT ERROR_NUMBER(), ERROR_MESSAGE()
END CATCH
-- expect
rowset
row 50021|segundo
end
rowset
row 50020|primero
end
-- run
CREATE TABLE k (id INT PRIMARY KEY)
-- run
INSERT INTO k VALUES (1)
BEGIN TRY
  INSERT INTO k VALUES (1)
END TRY
BEGIN CATCH
  DECLARE @numero INT = ERROR_NUMBER();
  THROW
END CATCH
-- expect
error 2627
-- run
BEGIN TRY
  EXEC('SELECT * FROM no_existe')
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER()
END CATCH
-- expect
rowset
row 208
end
-- run
BEGIN TRY
  SELECT 1
END TRY
-- expect
error 102
-- run
BEGIN TRY
  DECLARE @uno INT = 1, @otro INT = 1 / 0
END TRY
BEGIN CATCH
  SELECT ERROR_LINE()
END CATCH
-- expect
rowset
row 2
end
-- run
BEGIN TRY
  EXEC('SELECT 1 AS uno
    DECLARE @x INT
    SET @x = 1 / 0')
END TRY
BEGIN CATCH
  SELECT ERROR_NUMBER(), ERROR_LINE()
END CATCH
-- expect
rowset
row 1
end
rowset
row 8134|3
end
