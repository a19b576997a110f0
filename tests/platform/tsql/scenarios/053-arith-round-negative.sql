-- ROUND to a negative length rounds to tens, hundreds...
-- gap sqlite: SELECT ROUND(1234.567, -2), ROUND(1250, -2), ROUND(1234.5... answers row 1235|1250|1234.6, not row 1200|1300|1234.6
-- run
SELECT ROUND(1234.567, -2), ROUND(1250, -2), ROUND(1234.567, 1)
-- expect
rowset
row 1200|1300|1234.6
end
