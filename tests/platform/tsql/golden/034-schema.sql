-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
UPDATE clientes SET Nota=DEFAULT, Activo=DEFAULT WHERE (ZolmarID BETWEEN 70001 AND 120000)
-- SQLite
UPDATE clientes SET Nota=NULL, Activo=1 WHERE (ZolmarID BETWEEN 70001 AND 120000)
-- PostgreSQL
UPDATE clientes SET Nota=DEFAULT, Activo=DEFAULT WHERE (ZolmarID BETWEEN 70001 AND 120000)
-- result
count 0
