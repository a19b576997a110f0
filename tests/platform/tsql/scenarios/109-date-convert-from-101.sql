-- CONVERT of a text with style 101 reads mm/dd/yyyy whatever the date format.
-- run
SELECT CONVERT(DATETIME, '03/15/2024', 101)
-- expect
rowset
row 2024-03-15 00:00:00
end
