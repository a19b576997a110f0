-- SELECT ... INTO #t makes a #temporary table with the query's rows.
-- run
CREATE TABLE t (id INT, n INT)
-- run
INSERT INTO t VALUES (1, 0) INSERT INTO t VALUES (2, 5) INSERT INTO t VALUES (3, 7) INSERT INTO t VALUES (4, 7)
-- run
SELECT id, n INTO #copia FROM t WHERE n > 0
-- expect
count 3
-- run
SELECT COUNT(*), SUM(n) FROM #copia
-- expect
rowset
row 3|19
end
-- run
DROP TABLE #copia
