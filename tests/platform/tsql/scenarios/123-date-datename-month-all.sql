-- DATENAME of months in Spanish.
-- run
SELECT DATENAME(month, '20240101'), DATENAME(mm, '20240801'), DATENAME(m, '20241201')
-- expect
rowset
row enero|agosto|diciembre
end
