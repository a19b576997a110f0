-- RAISERROR of severity 11 to 18 outside TRY is error 50000 with its text formatted; the batch
-- goes on after it and ends with the error, and the transaction stays open whatever XACT_ABORT
-- says. A message number not in sys.messages is 18054, one below 13000 or 50000 itself 2732,
-- a severity past 18 without WITH LOG 2754, an argument of another kind than its conversion
-- 2786; severity 10 or less is only a message.
-- run
CREATE TABLE t (n INT)
-- run
INSERT INTO t VALUES (1)
RAISERROR('Falta el cliente %s (%d)', 16, 1, 'Ana', 7)
INSERT INTO t VALUES (2)
-- expect
error 50000
-- run
SELECT COUNT(*) FROM t
-- expect
rowset
row 2
end
-- run
BEGIN TRAN
INSERT INTO t VALUES (3)
RAISERROR('aviso', 16, 1) WITH NOWAIT
-- expect
error 50000
-- run
SELECT @@TRANCOUNT
-- expect
rowset
row 1
end
-- run
COMMIT
SELECT COUNT(*) FROM t
-- expect
rowset
row 3
end
-- run
RAISERROR('solo informa %d', 10, 1, 5)
SELECT COUNT(*) FROM t
-- expect
rowset
row 3
end
-- run
RAISERROR(50001, 16, 1)
-- expect
error 18054
-- run
RAISERROR(5, 16, 1)
-- expect
error 2732
-- run
RAISERROR(50000, 16, 1)
-- expect
error 2732
-- run
RAISERROR('grave', 19, 1)
-- expect
error 2754
-- run
RAISERROR('sin cerrar', 16, 1
-- expect
error 102
-- run
RAISERROR('%d', 16, 1, 'texto')
-- expect
error 2786
