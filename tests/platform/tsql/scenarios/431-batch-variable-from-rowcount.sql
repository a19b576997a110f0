-- @@ROWCOUNT of an UPDATE kept in a variable.
-- run
CREATE TABLE t (id INT, n INT)
-- run
INSERT INTO t VALUES (1, 0) INSERT INTO t VALUES (2, 7) INSERT INTO t VALUES (3, 7)
-- run
DECLARE @hechos INT UPDATE t SET n = n + 1 WHERE n = 7 SET @hechos = @@ROWCOUNT SELECT @hechos
-- expect
count 2
rowset
row 2
end
