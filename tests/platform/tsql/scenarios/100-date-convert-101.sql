-- CONVERT style 101 writes mm/dd/yyyy.
-- run
SELECT CONVERT(VARCHAR(10), CAST('20240305' AS DATETIME), 101)
-- expect
rowset
row 03/05/2024
end
