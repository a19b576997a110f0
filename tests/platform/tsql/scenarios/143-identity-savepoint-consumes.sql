-- An insert undone by ROLLBACK to a savepoint still uses up its identity value.
-- run
CREATE TABLE t (id INT IDENTITY(1,1), n INT)
-- run
BEGIN TRAN
-- run
INSERT INTO t (n) VALUES (1)
-- run
SAVE TRANSACTION antes
-- run
INSERT INTO t (n) VALUES (2)
-- run
ROLLBACK TRANSACTION antes
-- run
INSERT INTO t (n) VALUES (3)
-- run
COMMIT TRAN
-- run
SELECT id, n FROM t ORDER BY id
-- expect
rowset
row 1|1
row 3|3
end
