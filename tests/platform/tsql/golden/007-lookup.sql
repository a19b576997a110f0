-- Cursor navigation and lookups.
-- T-SQL
SELECT [Código], [Nombre Largo] FROM [clientes]
-- SQLite
SELECT "Código", "Nombre Largo" FROM "clientes"
-- PostgreSQL
SELECT "código", "nombre largo" FROM "clientes"
-- result
rowset
row NULL|NULL
end
