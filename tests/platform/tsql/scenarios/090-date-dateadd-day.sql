-- DATEADD by days.
-- run
SELECT DATEADD(day, 30, '20240115'), DATEADD(dd, -1, '20240301')
-- expect
rowset
row 2024-02-14 00:00:00|2024-02-29 00:00:00
end
