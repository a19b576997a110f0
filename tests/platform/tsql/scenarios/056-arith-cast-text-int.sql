-- CAST of a text with an integer to INT converts it.
-- run
SELECT CAST('12' AS INT) + 1, CAST(' 7 ' AS INT)
-- expect
rowset
row 13|7
end
