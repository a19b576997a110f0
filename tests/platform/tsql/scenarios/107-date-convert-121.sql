-- CONVERT style 121 writes milliseconds too.
-- gap sqlite: SELECT CONVERT(VARCHAR(23), CAST('20240305 13:45:30' AS D... answers error 195, not row 2024-03-05 13:45:30.000
-- gap postgres: SELECT CONVERT(VARCHAR(23), CAST('20240305 13:45:30' AS D... answers error 102, not row 2024-03-05 13:45:30.000
-- run
SELECT CONVERT(VARCHAR(23), CAST('20240305 13:45:30' AS DATETIME), 121)
-- expect
rowset
row 2024-03-05 13:45:30.000
end
