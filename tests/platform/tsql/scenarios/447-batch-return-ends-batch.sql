-- RETURN ends the batch: nothing after it runs, not even from inside a loop.
-- run
SELECT 1 RETURN SELECT 2
-- expect
rowset
row 1
end
-- run
DECLARE @i INT = 0 WHILE 1 = 1 BEGIN SET @i = @i + 1 IF @i = 3 RETURN END SELECT @i
-- expect
