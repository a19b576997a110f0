-- A text that is not a date is error 241.
-- gap sqlite: SELECT CAST('hola' AS DATETIME) answers row hola, not error 241
-- run
SELECT CAST('hola' AS DATETIME)
-- expect
error 241
