-- Record cursor writes: insert, identity repair, delete, status, duplicates, highest identity.
-- T-SQL
DELETE FROM clientes WHERE zolmarID=0
-- SQLite
DELETE FROM clientes WHERE zolmarID=0
-- PostgreSQL
DELETE FROM clientes WHERE zolmarID=0
-- result
count 0
