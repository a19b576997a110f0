-- ROLLBACK TRANSACTION to an earlier savepoint undoes the later ones too and keeps the
-- transaction open; SAVE TRANSACTION outside a transaction is error 628, and a savepoint ends
-- with its transaction (rolling back to it later is error 6401).
-- run
CREATE TABLE t (n INT)
-- run
SAVE TRANSACTION fuera
-- expect
error 628
-- run
BEGIN TRAN INSERT INTO t VALUES (1) SAVE TRAN a INSERT INTO t VALUES (2) SAVE TRAN b INSERT INTO t VALUES (3) ROLLBACK TRAN a INSERT INTO t VALUES (4) SELECT @@TRANCOUNT COMMIT
-- expect
count 1
count 1
count 1
count 1
rowset
row 1
end
-- run
SELECT n FROM t ORDER BY n
-- expect
rowset
row 1
row 4
end
-- run
BEGIN TRAN
-- run
ROLLBACK TRAN b
-- expect
error 6401
