-- ROUND to a negative length rounds to tens, hundreds...
-- run
SELECT ROUND(1234.567, -2), ROUND(1250, -2), ROUND(1234.567, 1)
-- expect
rowset
row 1200|1300|1234.6
end
