-- DATEDIFF by hours, minutes and seconds.
-- run
SELECT DATEDIFF(hh, '20240315 08:00', '20240315 17:30'), DATEDIFF(mi, '20240315 08:00', '20240315 08:45'), DATEDIFF(ss, '20240315 08:00', '20240315 08:01')
-- expect
rowset
row 9|45|60
end
