-- A text added to a number is converted to the number's type.
-- gap sqlite: SELECT '10' + 5, 5 + '10' answers row 105|510, not row 15|15
-- gap postgres: SELECT '10' + 5, 5 + '10' answers row 105|510, not row 15|15
-- run
SELECT '10' + 5, 5 + '10'
-- expect
rowset
row 15|15
end
