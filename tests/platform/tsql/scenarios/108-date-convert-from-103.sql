-- CONVERT of a text with style 103 reads dd/mm/yyyy.
-- gap sqlite: SELECT CONVERT(DATETIME, '05/03/2024', 103) answers error 207, not row 2024-03-05 00:00:00
-- gap postgres: SELECT CONVERT(DATETIME, '05/03/2024', 103) answers error 207, not row 2024-03-05 00:00:00
-- run
SELECT CONVERT(DATETIME, '05/03/2024', 103)
-- expect
rowset
row 2024-03-05 00:00:00
end
