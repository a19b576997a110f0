-- DATEDIFF counts month and year boundaries, not whole periods.
-- run
SELECT DATEDIFF(month, '20240131', '20240201'), DATEDIFF(year, '20231231', '20240101')
-- expect
rowset
row 1|1
end
