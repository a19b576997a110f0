-- DATENAME answers Spanish names under SET LANGUAGE Español.
-- run
SELECT DATENAME(dw, '20240318'), DATENAME(month, '20240315'), DATENAME(weekday, '20240324')
-- expect
rowset
row lunes|marzo|domingo
end
