-- DATEADD by a month from the 31st lands on the month's last day.
-- gap sqlite: SELECT DATEADD(month, 1, '20240131'), DATEADD(mm, 1, '202... answers error 207, not row 2024-02-29 00:00:00|2023-02-28 00:00:00
-- gap postgres: SELECT DATEADD(month, 1, '20240131'), DATEADD(mm, 1, '202... answers error 207, not row 2024-02-29 00:00:00|2023-02-28 00:00:00
-- run
SELECT DATEADD(month, 1, '20240131'), DATEADD(mm, 1, '20230131')
-- expect
rowset
row 2024-02-29 00:00:00|2023-02-28 00:00:00
end
