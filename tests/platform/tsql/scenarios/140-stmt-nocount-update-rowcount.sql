-- SET NOCOUNT ON, an UPDATE whose SET is its own, @@ROWCOUNT and SET NOCOUNT OFF in one batch.
-- run
CREATE TABLE t (id INT, n INT)
-- run
INSERT INTO t VALUES (1, 0)
-- run
INSERT INTO t VALUES (2, 5)
-- run
INSERT INTO t VALUES (3, 7)
-- run
INSERT INTO t VALUES (4, 7)
-- run
SET NOCOUNT ON UPDATE t SET n = n + 1 WHERE n > 0 SELECT @@ROWCOUNT SET NOCOUNT OFF
-- expect
rowset
row 3
end
