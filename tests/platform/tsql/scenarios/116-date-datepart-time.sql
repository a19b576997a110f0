-- DATEPART by hour, minute, second and millisecond.
-- run
SELECT DATEPART(hh, '20240315 13:45:30.250'), DATEPART(mi, '20240315 13:45:30.250'), DATEPART(ss, '20240315 13:45:30.250'), DATEPART(ms, '20240315 13:45:30.250')
-- expect
rowset
row 13|45|30|250
end
