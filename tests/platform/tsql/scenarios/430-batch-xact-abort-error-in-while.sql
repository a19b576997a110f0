-- Under XACT_ABORT ON an error inside a WHILE stops the batch and rolls the transaction back.
-- run
CREATE TABLE t (id INT NOT NULL PRIMARY KEY)
-- run
BEGIN TRAN DECLARE @i INT = 1 WHILE @i <= 5 BEGIN INSERT INTO t VALUES (@i % 3) SET @i = @i + 1 END COMMIT TRAN
-- expect
error 2627
-- run
SELECT @@TRANCOUNT
-- expect
rowset
row 0
end
-- run
SELECT COUNT(*) FROM t
-- expect
rowset
row 0
end
