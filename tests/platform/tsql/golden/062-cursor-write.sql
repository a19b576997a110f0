-- Record cursor writes: insert, identity repair, delete, status, duplicates, highest identity.
-- T-SQL
DELETE FROM clientes WHERE zolmarID = 5
-- SQLite
DELETE FROM clientes WHERE zolmarID = 5
-- PostgreSQL
DELETE FROM clientes WHERE zolmarID = 5
-- result
count 1
