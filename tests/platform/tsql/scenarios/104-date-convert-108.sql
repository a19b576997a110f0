-- CONVERT style 108 writes hh:mi:ss.
-- gap sqlite: SELECT CONVERT(VARCHAR(8), CAST('20240305 13:45:30' AS DA... answers error 195, not row 13:45:30
-- gap postgres: SELECT CONVERT(VARCHAR(8), CAST('20240305 13:45:30' AS DA... answers error 102, not row 13:45:30
-- run
SELECT CONVERT(VARCHAR(8), CAST('20240305 13:45:30' AS DATETIME), 108)
-- expect
rowset
row 13:45:30
end
