-- For DATETIME, 'yyyy-mm-dd' follows DATEFORMAT: under dmy it reads year, day, month.
-- run
SELECT CAST('2024-03-15' AS DATETIME)
-- expect
error 242
