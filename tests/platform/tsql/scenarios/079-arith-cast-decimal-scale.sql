-- CAST to DECIMAL(p,s) rounds to its scale.
-- run
SELECT CAST(2.345 AS DECIMAL(5,2)), CAST(2.344 AS DECIMAL(5,2))
-- expect
rowset
row 2.35|2.34
end
