-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
SELECT ISNULL(MAX(ZolmarID),0) FROM clientes
-- SQLite
SELECT ifnull(MAX(ZolmarID), 0) FROM clientes
-- PostgreSQL
SELECT COALESCE(MAX(ZolmarID), 0) FROM clientes
-- result
rowset
row 4
end
