-- A variable lives for its batch only: the next batch does not know it.
-- run
DECLARE @v INT SET @v = 1
-- run
SELECT @v
-- expect
error 137
