-- CONVERT style 112 writes yyyymmdd.
-- run
SELECT CONVERT(VARCHAR(8), CAST('20240305' AS DATETIME), 112)
-- expect
rowset
row 20240305
end
