-- Writes.
-- T-SQL
UPDATE clientes SET Nombre = 'B', Activo=DEFAULT WHERE zolmarID = 4
-- SQLite
UPDATE clientes SET Nombre = 'B', Activo=1 WHERE zolmarID = 4
-- PostgreSQL
UPDATE clientes SET Nombre = 'B', Activo=DEFAULT WHERE zolmarID = 4
-- result
count 1
