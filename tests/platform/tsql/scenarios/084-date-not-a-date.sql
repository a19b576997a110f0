-- A text that is not a date is error 241.
-- run
SELECT CAST('hola' AS DATETIME)
-- expect
error 241
