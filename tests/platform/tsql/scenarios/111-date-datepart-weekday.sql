-- With DATEFIRST 1 Monday is day 1 and Sunday day 7.
-- gap sqlite: SELECT DATEPART(dw, '20240318'), DATEPART(weekday, '20240... answers error 102, not row 1|7
-- gap postgres: SELECT DATEPART(dw, '20240318'), DATEPART(weekday, '20240... answers error 102, not row 1|7
-- run
SELECT DATEPART(dw, '20240318'), DATEPART(weekday, '20240324')
-- expect
rowset
row 1|7
end
