-- CAST of a text with a fraction to INT is error 245.
-- run
SELECT CAST('12.5' AS INT)
-- expect
error 245
