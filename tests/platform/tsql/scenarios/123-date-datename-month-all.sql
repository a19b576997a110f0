-- DATENAME of months in Spanish.
-- gap sqlite: SELECT DATENAME(month, '20240101'), DATENAME(mm, '2024080... answers error 207, not row enero|agosto|diciembre
-- gap postgres: SELECT DATENAME(month, '20240101'), DATENAME(mm, '2024080... answers error 207, not row enero|agosto|diciembre
-- run
SELECT DATENAME(month, '20240101'), DATENAME(mm, '20240801'), DATENAME(m, '20241201')
-- expect
rowset
row enero|agosto|diciembre
end
