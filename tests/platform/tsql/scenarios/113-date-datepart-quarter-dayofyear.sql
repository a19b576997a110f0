-- DATEPART by quarter and day of the year.
-- gap sqlite: SELECT DATEPART(q, '20240815'), DATEPART(dy, '20240201'),... answers error 102, not row 3|32|4
-- gap postgres: SELECT DATEPART(q, '20240815'), DATEPART(dy, '20240201'),... answers error 102, not row 3|32|4
-- run
SELECT DATEPART(q, '20240815'), DATEPART(dy, '20240201'), DATEPART(quarter, '20241231')
-- expect
rowset
row 3|32|4
end
