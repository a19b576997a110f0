-- @@ROWCOUNT answers the rows of the last statement.
-- run
CREATE TABLE t (n INT)
-- run
INSERT INTO t VALUES (1)
-- run
INSERT INTO t VALUES (2)
-- run
INSERT INTO t VALUES (3)
-- run
UPDATE t SET n = n + 1 WHERE n > 1
-- expect
count 2
-- run
SELECT @@ROWCOUNT
-- expect
rowset
row 2
end
