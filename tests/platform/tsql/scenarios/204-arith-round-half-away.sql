-- ROUND rounds half away from zero, for negatives too and to tens, hundreds... of integers.
-- run
SELECT ROUND(2.5, 0), ROUND(-2.5, 0), ROUND(-1250, -2), ROUND(1.005, 2), ROUND(149, -2)
-- expect
rowset
row 3|-3|-1300|1.01|100
end
