-- WHILE EXISTS (subquery) repeats while the subquery finds rows.
-- run
CREATE TABLE t (id INT, n INT)
-- run
INSERT INTO t VALUES (1, 3) INSERT INTO t VALUES (2, 40) INSERT INTO t VALUES (3, 150)
-- run
SET NOCOUNT ON WHILE EXISTS (SELECT * FROM t WHERE n < 100) UPDATE t SET n = n * 2 WHERE n < 100 SET NOCOUNT OFF SELECT n FROM t ORDER BY id
-- expect
rowset
row 192
row 160
row 150
end
