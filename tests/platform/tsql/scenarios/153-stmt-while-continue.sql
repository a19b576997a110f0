-- WHILE with CONTINUE.
-- run
DECLARE @i INT, @s INT SELECT @i = 0, @s = 0 WHILE @i < 5 BEGIN SET @i = @i + 1 IF @i % 2 = 0 CONTINUE SET @s = @s + @i END SELECT @s
-- expect
rowset
row 9
end
