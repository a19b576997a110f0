-- THROW ends the batch with its number (severity 16) and, under XACT_ABORT ON, rolls the
-- transaction back; a number below 50000 is 35100. THROW without arguments outside a CATCH
-- block does not compile (10704): nothing of the batch runs.
-- run
CREATE TABLE t (n INT)
-- run
INSERT INTO t VALUES (1)
THROW 50001, 'No hay saldo', 1
INSERT INTO t VALUES (2)
-- expect
error 50001
-- run
SELECT COUNT(*) FROM t
-- expect
rowset
row 1
end
-- run
BEGIN TRAN
INSERT INTO t VALUES (3)
DECLARE @n INT = 50002, @texto NVARCHAR(50) = N'Otro fallo'
THROW @n, @texto, 2
-- expect
error 50002
-- run
SELECT @@TRANCOUNT, COUNT(*) FROM t
-- expect
rowset
row 0|1
end
-- run
THROW 1000, 'bajo', 1
-- expect
error 35100
-- run
INSERT INTO t VALUES (4)
THROW
-- expect
error 10704
-- run
SELECT COUNT(*) FROM t
-- expect
rowset
row 1
end
