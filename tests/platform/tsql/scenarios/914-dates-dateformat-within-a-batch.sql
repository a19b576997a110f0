-- SET DATEFORMAT takes effect for the statements after it, in the same batch too: under ymd
-- '2024-03-15' is the 15th of March, under mdy '03/15/2024'; under dmy '03/15/2024' is 242.
-- run
SET DATEFORMAT ymd
SELECT CONVERT(VARCHAR(10), CAST('2024-03-15' AS DATETIME), 103)
-- expect
rowset
row 15/03/2024
end
-- run
SET DATEFORMAT mdy
SELECT CONVERT(VARCHAR(10), CAST('03/15/2024' AS DATETIME), 103)
-- expect
rowset
row 15/03/2024
end
-- run
SELECT CONVERT(VARCHAR(10), CAST('03/15/2024' AS DATETIME), 103)
-- expect
rowset
row 15/03/2024
end
-- run
SET DATEFORMAT dmy
SELECT CAST('03/15/2024' AS DATETIME)
-- expect
error 242
