-- CONVERT style 108 writes hh:mi:ss.
-- run
SELECT CONVERT(VARCHAR(8), CAST('20240305 13:45:30' AS DATETIME), 108)
-- expect
rowset
row 13:45:30
end
