-- A DATETIME plus 1 is the next day.
-- run
SELECT CAST('20240315' AS DATETIME) + 1, CAST('20240315 10:00' AS DATETIME) - 1
-- expect
rowset
row 2024-03-16 00:00:00|2024-03-14 10:00:00
end
