-- A text that is not a number added to an integer is error 245.
-- gap sqlite: SELECT 'Ana' + 1 answers row Ana1, not error 245
-- gap postgres: SELECT 'Ana' + 1 answers row Ana1, not error 245
-- run
SELECT 'Ana' + 1
-- expect
error 245
