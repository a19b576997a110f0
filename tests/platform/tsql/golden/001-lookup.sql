-- Cursor navigation and lookups.
-- T-SQL
SELECT TOP 1 * FROM clientes WHERE zolmarID > 5 AND (Activo=1) ORDER BY zolmarID
-- SQLite
SELECT * FROM clientes WHERE zolmarID > 5 AND (Activo=1) ORDER BY zolmarID LIMIT 1
-- PostgreSQL
SELECT * FROM clientes WHERE zolmarID > 5 AND (Activo=1) ORDER BY zolmarID LIMIT 1
-- result
rowset
end
