-- A DECLARE without a value inside a loop does not set the variable back to NULL on each turn.
-- run
DECLARE @i INT = 0 WHILE @i < 3 BEGIN DECLARE @x INT SET @x = ISNULL(@x, 0) + 1 SET @i = @i + 1 END SELECT @x
-- expect
rowset
row 3
end
