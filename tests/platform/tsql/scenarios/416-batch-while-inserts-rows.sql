-- A WHILE loop that inserts rows under SET NOCOUNT ON sends no counts.
-- run
CREATE TABLE t (n INT)
-- run
SET NOCOUNT ON DECLARE @i INT SET @i = 0 WHILE @i < 5 BEGIN SET @i = @i + 1 INSERT INTO t VALUES (@i * 10) END SET NOCOUNT OFF SELECT COUNT(*), SUM(n) FROM t
-- expect
rowset
row 5|150
end
