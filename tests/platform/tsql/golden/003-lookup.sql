-- Cursor navigation and lookups.
-- T-SQL
SELECT TOP 1 codigo, nombre FROM clientes WHERE 1 = 0
-- SQLite
SELECT codigo, nombre FROM clientes WHERE 1 = 0 LIMIT 1
-- PostgreSQL
SELECT codigo, nombre FROM clientes WHERE 1 = 0 LIMIT 1
-- result
rowset
end
