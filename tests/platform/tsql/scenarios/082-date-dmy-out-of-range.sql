-- Under DATEFORMAT dmy '03/15/2024' has month 15: error 242.
-- run
SELECT CAST('03/15/2024' AS DATETIME)
-- expect
error 242
