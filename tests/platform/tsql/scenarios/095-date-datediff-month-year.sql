-- DATEDIFF counts month and year boundaries, not whole periods.
-- gap sqlite: SELECT DATEDIFF(month, '20240131', '20240201'), DATEDIFF(... answers error 207, not row 1|1
-- gap postgres: SELECT DATEDIFF(month, '20240131', '20240201'), DATEDIFF(... answers error 207, not row 1|1
-- run
SELECT DATEDIFF(month, '20240131', '20240201'), DATEDIFF(year, '20231231', '20240101')
-- expect
rowset
row 1|1
end
