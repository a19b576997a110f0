-- A negative variable right after a minus sign is still a number.
-- run
DECLARE @n INT = -5, @d DECIMAL(5,1) = -2.5 SELECT 10-@n, @n*@n, 1-@d
-- expect
rowset
row 15|25|3.5
end
