-- DATEDIFF is negative when the end comes first.
-- gap sqlite: SELECT DATEDIFF(day, '20240310', '20240301') answers error 207, not row -9
-- gap postgres: SELECT DATEDIFF(day, '20240310', '20240301') answers error 207, not row -9
-- run
SELECT DATEDIFF(day, '20240310', '20240301')
-- expect
rowset
row -9
end
