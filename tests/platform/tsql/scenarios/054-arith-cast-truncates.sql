-- CAST of a decimal to INT truncates toward zero.
-- run
SELECT CAST(10.5 AS INT), CAST(-10.5 AS INT), CONVERT(INT, 9.99)
-- expect
rowset
row 10|-10|9
end
