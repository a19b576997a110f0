-- DATEDIFF counts day boundaries.
-- run
SELECT DATEDIFF(day, '20240101', '20240301'), DATEDIFF(dd, '20240301 23:59', '20240302 00:01')
-- expect
rowset
row 60|1
end
