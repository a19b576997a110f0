-- DATEADD by a month from the 31st lands on the month's last day.
-- run
SELECT DATEADD(month, 1, '20240131'), DATEADD(mm, 1, '20230131')
-- expect
rowset
row 2024-02-29 00:00:00|2023-02-28 00:00:00
end
