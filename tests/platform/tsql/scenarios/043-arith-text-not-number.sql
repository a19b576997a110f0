-- A text that is not a number added to an integer is error 245.
-- run
SELECT 'Ana' + 1
-- expect
error 245
