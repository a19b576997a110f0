-- A text built up in a loop.
-- run
DECLARE @s VARCHAR(20) = '', @i INT = 0 WHILE @i < 4 BEGIN SET @s = @s + CAST(@i AS VARCHAR(2)) + ';' SET @i = @i + 1 END SELECT @s
-- expect
rowset
row 0;1;2;3;
end
