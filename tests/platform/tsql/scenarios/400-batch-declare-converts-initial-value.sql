-- A DECLARE's initial value takes the variable's type: 12.9 into an INT is 12, a number into a VARCHAR is text.
-- run
DECLARE @n INT = 12.9, @s VARCHAR(10) = 12 SELECT @n, @s + '1'
-- expect
rowset
row 12|121
end
