-- A #temporary table filled by a loop in the same batch that made it.
-- run
SET NOCOUNT ON CREATE TABLE #cuadrados (n INT, c INT) DECLARE @i INT = 1 WHILE @i <= 4 BEGIN INSERT INTO #cuadrados VALUES (@i, @i * @i) SET @i = @i + 1 END SET NOCOUNT OFF SELECT SUM(c) FROM #cuadrados
-- expect
rowset
row 30
end
-- run
DROP TABLE #cuadrados
