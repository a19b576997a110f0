-- A SELECT inside a loop sends one result per turn.
-- run
DECLARE @i INT = 1 WHILE @i <= 2 BEGIN SELECT @i * 100 SET @i = @i + 1 END
-- expect
rowset
row 100
end
rowset
row 200
end
