-- A text with a fraction added to an integer is error 245.
-- run
SELECT 10 + '5.5'
-- expect
error 245
