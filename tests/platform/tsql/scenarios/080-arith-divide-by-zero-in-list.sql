-- A division by zero anywhere in the select list fails the whole statement.
-- gap sqlite: SELECT 1, 2 / 0 answers row 1|NULL, not error 8134
-- run
SELECT 1, 2 / 0
-- expect
error 8134
