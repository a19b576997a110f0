-- WHILE with BEGIN ... END and BREAK.
-- run
DECLARE @i INT SET @i = 0 WHILE @i < 10 BEGIN SET @i = @i + 1 IF @i = 3 BREAK END SELECT @i
-- expect
rowset
row 3
end
