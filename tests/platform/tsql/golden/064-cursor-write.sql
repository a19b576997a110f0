-- Record cursor writes: insert, identity repair, delete, status, duplicates, highest identity.
-- T-SQL
SELECT count(*) FROM clientes WHERE Nombre='Ana' AND ZolmarID<>5
-- SQLite
SELECT count(*) FROM clientes WHERE Nombre='Ana' AND ZolmarID<>5
-- PostgreSQL
SELECT count(*) FROM clientes WHERE Nombre='Ana' AND ZolmarID<>5
-- result
rowset
row 2
end
