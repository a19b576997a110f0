-- DATEDIFF by hours, minutes and seconds.
-- gap sqlite: SELECT DATEDIFF(hh, '20240315 08:00', '20240315 17:30'), ... answers error 207, not row 9|45|60
-- gap postgres: SELECT DATEDIFF(hh, '20240315 08:00', '20240315 17:30'), ... answers error 207, not row 9|45|60
-- run
SELECT DATEDIFF(hh, '20240315 08:00', '20240315 17:30'), DATEDIFF(mi, '20240315 08:00', '20240315 08:45'), DATEDIFF(ss, '20240315 08:00', '20240315 08:01')
-- expect
rowset
row 9|45|60
end
