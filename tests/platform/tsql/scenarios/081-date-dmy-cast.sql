-- Under DATEFORMAT dmy a text date reads day first.
-- run
SELECT CAST('15/03/2024' AS DATETIME)
-- expect
rowset
row 2024-03-15 00:00:00
end
