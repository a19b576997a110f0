-- The usual handler: the transaction opened inside TRY is rolled back in CATCH when
-- @@TRANCOUNT says it is open, and the error goes on to the caller through RAISERROR with the
-- message ERROR_MESSAGE() read; the batch ends with error 50000 and nothing of it stays.
-- run
CREATE TABLE pedido (id INT PRIMARY KEY, importe MONEY NOT NULL)
-- run
BEGIN TRY
  BEGIN TRAN
  INSERT INTO pedido VALUES (1, 10)
  INSERT INTO pedido VALUES (2, NULL)
  COMMIT
END TRY
BEGIN CATCH
  IF @@TRANCOUNT > 0 ROLLBACK
  DECLARE @mensaje NVARCHAR(4000) = ERROR_MESSAGE(), @numero INT = ERROR_NUMBER()
  INSERT INTO pedido VALUES (@numero, 0)
  RAISERROR(@mensaje, 16, 1)
END CATCH
-- expect
error 50000
-- run
SELECT id, importe FROM pedido
-- expect
rowset
row 515|0
end
-- run
BEGIN TRY
  BEGIN TRAN
  INSERT INTO pedido VALUES (3, 30)
  COMMIT
END TRY
BEGIN CATCH
  IF @@TRANCOUNT > 0 ROLLBACK
  RAISERROR('no llega', 16, 1)
END CATCH
SELECT COUNT(*), @@TRANCOUNT FROM pedido
-- expect
count 1
rowset
row 2|0
end
