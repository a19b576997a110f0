-- A text added to a number is converted to the number's type.
-- run
SELECT '10' + 5, 5 + '10'
-- expect
rowset
row 15|15
end
