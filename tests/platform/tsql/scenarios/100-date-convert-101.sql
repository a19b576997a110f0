-- CONVERT style 101 writes mm/dd/yyyy.
-- gap sqlite: SELECT CONVERT(VARCHAR(10), CAST('20240305' AS DATETIME),... answers error 195, not row 03/05/2024
-- gap postgres: SELECT CONVERT(VARCHAR(10), CAST('20240305' AS DATETIME),... answers error 102, not row 03/05/2024
-- run
SELECT CONVERT(VARCHAR(10), CAST('20240305' AS DATETIME), 101)
-- expect
rowset
row 03/05/2024
end
