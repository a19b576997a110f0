-- A text that holds a number, given to an INT variable, is that number; arithmetic on it is integer.
-- run
DECLARE @n INT = '12' SELECT @n / 5, @n + 1
-- expect
rowset
row 2|13
end
