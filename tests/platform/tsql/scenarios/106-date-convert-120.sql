-- CONVERT style 120 writes yyyy-mm-dd hh:mi:ss.
-- run
SELECT CONVERT(VARCHAR(19), CAST('20240305 13:45:30' AS DATETIME), 120)
-- expect
rowset
row 2024-03-05 13:45:30
end
