-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
UPDATE clientes SET Activo=DEFAULT WHERE (ZolmarID BETWEEN -29999 AND 20000)
-- SQLite
UPDATE clientes SET Activo=1 WHERE (ZolmarID BETWEEN -29999 AND 20000)
-- PostgreSQL
UPDATE clientes SET Activo=DEFAULT WHERE (ZolmarID BETWEEN -29999 AND 20000)
-- result
count 4
