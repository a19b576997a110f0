-- The remainder of a division by zero is error 8134.
-- run
SELECT 7 % 0
-- expect
error 8134
