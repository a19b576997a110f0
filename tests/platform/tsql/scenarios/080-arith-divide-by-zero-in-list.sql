-- A division by zero anywhere in the select list fails the whole statement.
-- run
SELECT 1, 2 / 0
-- expect
error 8134
