-- Record cursor writes: insert, identity repair, delete, status, duplicates, highest identity.
-- T-SQL
SELECT max(zolmarID) AS MaxID FROM clientes
-- SQLite
SELECT max(zolmarID) AS MaxID FROM clientes
-- PostgreSQL
SELECT max(zolmarID) AS MaxID FROM clientes
-- result
rowset
row 4
end
