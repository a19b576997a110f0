-- CONVERT style 120 writes yyyy-mm-dd hh:mi:ss.
-- gap sqlite: SELECT CONVERT(VARCHAR(19), CAST('20240305 13:45:30' AS D... answers error 195, not row 2024-03-05 13:45:30
-- gap postgres: SELECT CONVERT(VARCHAR(19), CAST('20240305 13:45:30' AS D... answers error 102, not row 2024-03-05 13:45:30
-- run
SELECT CONVERT(VARCHAR(19), CAST('20240305 13:45:30' AS DATETIME), 120)
-- expect
rowset
row 2024-03-05 13:45:30
end
