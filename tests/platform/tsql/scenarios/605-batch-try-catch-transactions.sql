-- Under XACT_ABORT ON an error inside TRY leaves the open transaction uncommittable: CATCH
-- sees XACT_STATE() -1 and @@TRANCOUNT 1, ROLLBACK is all it may do (COMMIT and writes 3930,
-- rolling back to a savepoint 3931), and a batch ending with it rolls it back with 3998.
-- RAISERROR leaves the transaction committable. Outside a transaction XACT_STATE() is 0 and the
-- connection goes on with the next statement.
-- run
CREATE TABLE k (id INT PRIMARY KEY)
-- run
BEGIN TRAN
BEGIN TRY
  INSERT INTO k VALUES (1)
  INSERT INTO k VALUES (1)
END TRY
BEGIN CATCH
  SELECT XACT_STATE(), @@TRANCOUNT, ERROR_NUMBER()
  IF XACT_STATE() = -1 ROLLBACK
END CATCH
SELECT XACT_STATE(), @@TRANCOUNT, COUNT(*) FROM k
-- expect
count 1
rowset
row -1|1|2627
end
rowset
row 0|0|0
end
-- run
BEGIN TRAN
BEGIN TRY
  INSERT INTO k VALUES (2)
  THROW 50001, 'a mano', 1
END TRY
BEGIN CATCH
  COMMIT
END CATCH
-- expect
error 3930
-- run
SELECT @@TRANCOUNT, COUNT(*) FROM k
-- expect
rowset
row 0|0
end
-- run
BEGIN TRAN
BEGIN TRY
  INSERT INTO k VALUES (3)
  INSERT INTO k VALUES (3)
END TRY
BEGIN CATCH
  INSERT INTO k VALUES (4)
END CATCH
-- expect
error 3930
-- run
BEGIN TRAN
SAVE TRAN punto
BEGIN TRY
  INSERT INTO k VALUES (5)
  INSERT INTO k VALUES (5)
END TRY
BEGIN CATCH
  ROLLBACK TRAN punto
END CATCH
-- expect
error 3931
-- run
DECLARE @cero INT = 0
BEGIN TRAN
BEGIN TRY
  INSERT INTO k VALUES (6)
  UPDATE k SET id = id / @cero
END TRY
BEGIN CATCH
  PRINT 'sin deshacer'
END CATCH
-- expect
error 3998
-- run
SELECT @@TRANCOUNT, XACT_STATE(), COUNT(*) FROM k
-- expect
rowset
row 0|0|0
end
-- run
BEGIN TRAN
BEGIN TRY
  INSERT INTO k VALUES (7)
  RAISERROR('revisar', 16, 1)
END TRY
BEGIN CATCH
  SELECT XACT_STATE(), @@TRANCOUNT
  COMMIT
END CATCH
SELECT @@TRANCOUNT, COUNT(*) FROM k
-- expect
count 1
rowset
row 1|1
end
rowset
row 0|1
end
-- run
BEGIN TRY
  INSERT INTO k VALUES (7)
END TRY
BEGIN CATCH
  SELECT XACT_STATE(), @@TRANCOUNT, ERROR_NUMBER()
END CATCH
INSERT INTO k VALUES (8)
SELECT COUNT(*) FROM k
-- expect
rowset
row 0|0|2627
end
count 1
rowset
row 2
end
