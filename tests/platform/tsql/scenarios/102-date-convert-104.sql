-- CONVERT style 104 writes dd.mm.yyyy.
-- run
SELECT CONVERT(VARCHAR(10), CAST('20240305' AS DATETIME), 104)
-- expect
rowset
row 05.03.2024
end
