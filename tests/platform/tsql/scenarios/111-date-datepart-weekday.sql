-- With DATEFIRST 1 Monday is day 1 and Sunday day 7.
-- run
SELECT DATEPART(dw, '20240318'), DATEPART(weekday, '20240324')
-- expect
rowset
row 1|7
end
