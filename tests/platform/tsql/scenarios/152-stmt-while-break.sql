-- WHILE with BEGIN ... END and BREAK.
-- gap sqlite: DECLARE @i INT SET @i = 0 WHILE @i < 10 BEGIN SET @i = @i... answers error 102, not row 3
-- gap postgres: DECLARE @i INT SET @i = 0 WHILE @i < 10 BEGIN SET @i = @i... answers error 102, not row 3
-- run
DECLARE @i INT SET @i = 0 WHILE @i < 10 BEGIN SET @i = @i + 1 IF @i = 3 BREAK END SELECT @i
-- expect
rowset
row 3
end
