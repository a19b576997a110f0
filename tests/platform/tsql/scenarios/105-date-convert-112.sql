-- CONVERT style 112 writes yyyymmdd.
-- gap sqlite: SELECT CONVERT(VARCHAR(8), CAST('20240305' AS DATETIME), ... answers error 195, not row 20240305
-- gap postgres: SELECT CONVERT(VARCHAR(8), CAST('20240305' AS DATETIME), ... answers error 102, not row 20240305
-- run
SELECT CONVERT(VARCHAR(8), CAST('20240305' AS DATETIME), 112)
-- expect
rowset
row 20240305
end
