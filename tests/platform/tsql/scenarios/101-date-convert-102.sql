-- CONVERT style 102 writes yyyy.mm.dd.
-- gap sqlite: SELECT CONVERT(VARCHAR(10), CAST('20240305' AS DATETIME),... answers error 195, not row 2024.03.05
-- gap postgres: SELECT CONVERT(VARCHAR(10), CAST('20240305' AS DATETIME),... answers error 102, not row 2024.03.05
-- run
SELECT CONVERT(VARCHAR(10), CAST('20240305' AS DATETIME), 102)
-- expect
rowset
row 2024.03.05
end
