-- DATEDIFF is negative when the end comes first.
-- run
SELECT DATEDIFF(day, '20240310', '20240301')
-- expect
rowset
row -9
end
