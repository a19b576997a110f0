-- Under DATEFORMAT dmy '03/15/2024' has month 15: error 242.
-- gap sqlite: SELECT CAST('03/15/2024' AS DATETIME) answers row 03/15/2024, not error 242
-- gap postgres: SELECT CAST('03/15/2024' AS DATETIME) answers row 2024-03-15 00:00:00, not error 242
-- run
SELECT CAST('03/15/2024' AS DATETIME)
-- expect
error 242
