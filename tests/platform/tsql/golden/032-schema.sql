-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
SELECT TOP 1 * FROM clientes
-- SQLite
SELECT * FROM clientes LIMIT 1
-- PostgreSQL
SELECT * FROM clientes LIMIT 1
-- result
rowset
row 1|Ana|2024-01-31 07:05:09|1|4|NULL|NULL|NULL|NULL|NULL|NULL
end
