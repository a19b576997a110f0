-- A text with a fraction added to an integer is error 245.
-- gap sqlite: SELECT 10 + '5.5' answers row 105.5, not error 245
-- gap postgres: SELECT 10 + '5.5' answers row 105.5, not error 245
-- run
SELECT 10 + '5.5'
-- expect
error 245
