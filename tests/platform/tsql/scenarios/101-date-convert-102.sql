-- CONVERT style 102 writes yyyy.mm.dd.
-- run
SELECT CONVERT(VARCHAR(10), CAST('20240305' AS DATETIME), 102)
-- expect
rowset
row 2024.03.05
end
