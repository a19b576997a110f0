-- CONVERT of a text with style 112 reads yyyymmdd.
-- run
SELECT CONVERT(DATETIME, '20240315', 112)
-- expect
rowset
row 2024-03-15 00:00:00
end
