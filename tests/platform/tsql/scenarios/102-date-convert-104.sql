-- CONVERT style 104 writes dd.mm.yyyy.
-- gap sqlite: SELECT CONVERT(VARCHAR(10), CAST('20240305' AS DATETIME),... answers error 195, not row 05.03.2024
-- gap postgres: SELECT CONVERT(VARCHAR(10), CAST('20240305' AS DATETIME),... answers error 102, not row 05.03.2024
-- run
SELECT CONVERT(VARCHAR(10), CAST('20240305' AS DATETIME), 104)
-- expect
rowset
row 05.03.2024
end
