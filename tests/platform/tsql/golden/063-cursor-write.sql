-- Record cursor writes: insert, identity repair, delete, status, duplicates, highest identity.
-- T-SQL
UPDATE clientes SET Activo=2 WHERE zolmarID = 5
-- SQLite
UPDATE clientes SET Activo=2 WHERE zolmarID = 5
-- PostgreSQL
UPDATE clientes SET Activo=2 WHERE zolmarID = 5
-- result
count 0
