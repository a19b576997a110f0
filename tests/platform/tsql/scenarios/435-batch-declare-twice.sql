-- The same variable declared twice in a batch is error 134.
-- run
DECLARE @a INT DECLARE @a VARCHAR(10) SELECT 1
-- expect
error 134
