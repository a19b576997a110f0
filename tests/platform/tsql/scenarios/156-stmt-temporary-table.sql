-- A #temporary table lives for the session.
-- run
CREATE TABLE #tmp (n INT)
-- run
INSERT INTO #tmp VALUES (4)
-- expect
count 1
-- run
SELECT n FROM #tmp
-- expect
rowset
row 4
end
-- run
DROP TABLE #tmp
