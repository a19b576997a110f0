-- DATEADD by a year from 29 February lands on the 28th.
-- gap sqlite: SELECT DATEADD(year, 1, '20240229') answers error 207, not row 2025-02-28 00:00:00
-- gap postgres: SELECT DATEADD(year, 1, '20240229') answers error 207, not row 2025-02-28 00:00:00
-- run
SELECT DATEADD(year, 1, '20240229')
-- expect
rowset
row 2025-02-28 00:00:00
end
