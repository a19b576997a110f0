-- CONVERT of a text with style 103 reads dd/mm/yyyy.
-- run
SELECT CONVERT(DATETIME, '05/03/2024', 103)
-- expect
rowset
row 2024-03-05 00:00:00
end
