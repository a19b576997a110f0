-- CONVERT style 121 writes milliseconds too.
-- run
SELECT CONVERT(VARCHAR(23), CAST('20240305 13:45:30' AS DATETIME), 121)
-- expect
rowset
row 2024-03-05 13:45:30.000
end
