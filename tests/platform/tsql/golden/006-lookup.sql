-- Cursor navigation and lookups.
-- T-SQL
SELECT isnull(max(zolmarID),0) AS ultimo FROM clientes
-- SQLite
SELECT ifnull(max(zolmarID), 0) AS ultimo FROM clientes
-- PostgreSQL
SELECT COALESCE(max(zolmarID), 0) AS ultimo FROM clientes
-- result
rowset
row 1
end
