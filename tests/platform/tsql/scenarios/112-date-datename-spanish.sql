-- DATENAME answers Spanish names under SET LANGUAGE Español.
-- gap sqlite: SELECT DATENAME(dw, '20240318'), DATENAME(month, '2024031... answers error 207, not row lunes|marzo|domingo
-- gap postgres: SELECT DATENAME(dw, '20240318'), DATENAME(month, '2024031... answers error 207, not row lunes|marzo|domingo
-- run
SELECT DATENAME(dw, '20240318'), DATENAME(month, '20240315'), DATENAME(weekday, '20240324')
-- expect
rowset
row lunes|marzo|domingo
end
