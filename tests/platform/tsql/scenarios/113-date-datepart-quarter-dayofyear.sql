-- DATEPART by quarter and day of the year.
-- run
SELECT DATEPART(q, '20240815'), DATEPART(dy, '20240201'), DATEPART(quarter, '20241231')
-- expect
rowset
row 3|32|4
end
