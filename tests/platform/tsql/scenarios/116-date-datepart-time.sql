-- DATEPART by hour, minute, second and millisecond.
-- gap sqlite: SELECT DATEPART(hh, '20240315 13:45:30.250'), DATEPART(mi... answers error 102, not row 13|45|30|250
-- gap postgres: SELECT DATEPART(hh, '20240315 13:45:30.250'), DATEPART(mi... answers error 102, not row 13|45|30|250
-- run
SELECT DATEPART(hh, '20240315 13:45:30.250'), DATEPART(mi, '20240315 13:45:30.250'), DATEPART(ss, '20240315 13:45:30.250'), DATEPART(ms, '20240315 13:45:30.250')
-- expect
rowset
row 13|45|30|250
end
