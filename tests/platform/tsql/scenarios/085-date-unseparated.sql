-- 'yyyymmdd' reads the same whatever the date format.
-- run
SELECT CAST('20240315' AS DATETIME), CAST('20240315 13:45' AS DATETIME)
-- expect
rowset
row 2024-03-15 00:00:00|2024-03-15 13:45:00
end
