-- Dates.
-- T-SQL
SELECT * FROM apuntes WHERE CAST(FLOOR(CAST(Fecha AS FLOAT)) AS DATETIME) = '20240131'
-- SQLite
SELECT * FROM apuntes WHERE datetime(date(Fecha)) = '2024-01-31 00:00:00'
-- PostgreSQL
SELECT * FROM apuntes WHERE date_trunc('day', Fecha) = '2024-01-31 00:00:00'
-- result
rowset
row 1|2024-01-31 07:05:09|2024-01-31 00:00:00
end
