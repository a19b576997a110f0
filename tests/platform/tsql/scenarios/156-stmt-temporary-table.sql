-- A #temporary table lives for the session.
-- gap sqlite: CREATE TABLE #tmp (n INT) answers error 102, not success
-- gap postgres: CREATE TABLE #tmp (n INT) answers error 102, not success
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
