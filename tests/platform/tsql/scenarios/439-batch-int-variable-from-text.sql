-- A text that is not a number, given to an INT variable, is error 245.
-- run
DECLARE @n INT SET @n = 'abc'
-- expect
error 245
