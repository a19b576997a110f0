-- A WHILE loop over a counter adds 1 to 10.
-- run
DECLARE @i INT = 1, @s INT = 0 WHILE @i <= 10 BEGIN SET @s = @s + @i SET @i = @i + 1 END SELECT @s, @i
-- expect
rowset
row 55|11
end
