-- DATEADD by a year from 29 February lands on the 28th.
-- run
SELECT DATEADD(year, 1, '20240229')
-- expect
rowset
row 2025-02-28 00:00:00
end
