-- For DATETIME, 'yyyy-mm-dd' follows DATEFORMAT: under dmy it reads year, day, month.
-- gap sqlite: SELECT CAST('2024-03-15' AS DATETIME) answers row 2024-03-15, not error 242
-- gap postgres: SELECT CAST('2024-03-15' AS DATETIME) answers row 2024-03-15 00:00:00, not error 242
-- run
SELECT CAST('2024-03-15' AS DATETIME)
-- expect
error 242
