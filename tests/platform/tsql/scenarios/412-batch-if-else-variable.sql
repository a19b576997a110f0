-- IF ... ELSE on a variable runs only the branch that the condition picks.
-- run
DECLARE @n INT = 3 IF @n > 5 SELECT 'grande' ELSE SELECT 'pequeño'
-- expect
rowset
row pequeño
end
