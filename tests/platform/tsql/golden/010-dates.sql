-- Dates.
-- T-SQL
SELECT * FROM apuntes WHERE Fecha >= '20240131' AND Fecha < '20240201 13:05:09' AND Alta = '31/01/2024'
-- SQLite
SELECT * FROM apuntes WHERE Fecha >= '2024-01-31 00:00:00' AND Fecha < '2024-02-01 13:05:09' AND Alta = '2024-01-31 00:00:00'
-- PostgreSQL
SELECT * FROM apuntes WHERE Fecha >= '2024-01-31 00:00:00' AND Fecha < '2024-02-01 13:05:09' AND Alta = '2024-01-31 00:00:00'
-- result
rowset
row 1|2024-01-31 07:05:09|2024-01-31 00:00:00
end
