-- SET @v += n and the other compound assignments.
-- run
DECLARE @n INT = 10 SET @n += 5 SET @n *= 2 SET @n -= 4 SELECT @n
-- expect
rowset
row 26
end
