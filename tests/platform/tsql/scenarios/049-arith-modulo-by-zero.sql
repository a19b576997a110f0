-- The remainder of a division by zero is error 8134.
-- gap sqlite: SELECT 7 % 0 answers row NULL, not error 8134
-- run
SELECT 7 % 0
-- expect
error 8134
