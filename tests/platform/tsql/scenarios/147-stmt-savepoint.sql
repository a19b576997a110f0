-- SAVE TRANSACTION and ROLLBACK to the savepoint undo only what followed it.
-- run
CREATE TABLE t (n INT)
-- run
BEGIN TRAN INSERT INTO t VALUES (1) SAVE TRANSACTION punto INSERT INTO t VALUES (2) ROLLBACK TRANSACTION punto COMMIT TRAN
-- run
SELECT n FROM t
-- expect
rowset
row 1
end
