-- An integer divided by a decimal keeps the fraction.
-- run
SELECT 7 / 2.0, 3 / 2 + 0.5
-- expect
rowset
row 3.5|1.5
end
