-- BREAK leaves only the innermost WHILE; the outer loop goes on.
-- run
DECLARE @i INT = 0, @j INT, @vueltas INT = 0 WHILE @i < 3 BEGIN SET @i = @i + 1 SET @j = 0 WHILE 1 = 1 BEGIN SET @j = @j + 1 SET @vueltas = @vueltas + 1 IF @j >= 2 BREAK END END SELECT @i, @vueltas
-- expect
rowset
row 3|6
end
