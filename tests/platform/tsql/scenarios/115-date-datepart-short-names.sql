-- DATEPART takes every abbreviation of year, month and day.
-- run
SELECT DATEPART(yy, '20240315'), DATEPART(yyyy, '20240315'), DATEPART(mm, '20240315'), DATEPART(m, '20240315'), DATEPART(dd, '20240315'), DATEPART(d, '20240315')
-- expect
rowset
row 2024|2024|3|3|15|15
end
