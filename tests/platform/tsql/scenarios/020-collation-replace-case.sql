-- REPLACE finds the pattern whatever its case.
-- run
SELECT REPLACE('Casa CASA casa', 'casa', 'x')
-- expect
rowset
row x x x
end
