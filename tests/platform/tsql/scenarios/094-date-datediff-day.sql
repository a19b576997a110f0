-- DATEDIFF counts day boundaries.
-- gap sqlite: SELECT DATEDIFF(day, '20240101', '20240301'), DATEDIFF(dd... answers error 207, not row 60|1
-- gap postgres: SELECT DATEDIFF(day, '20240101', '20240301'), DATEDIFF(dd... answers error 207, not row 60|1
-- run
SELECT DATEDIFF(day, '20240101', '20240301'), DATEDIFF(dd, '20240301 23:59', '20240302 00:01')
-- expect
rowset
row 60|1
end
