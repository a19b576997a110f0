-- DATEADD by hours and minutes.
-- run
SELECT DATEADD(hh, 25, '20240315'), DATEADD(mi, 90, '20240315')
-- expect
rowset
row 2024-03-16 01:00:00|2024-03-15 01:30:00
end
