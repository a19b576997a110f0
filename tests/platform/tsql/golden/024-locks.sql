-- Databases and locks.
-- T-SQL
SELECT name FROM dbo.clientes
-- SQLite
SELECT name FROM clientes
-- PostgreSQL
SELECT name FROM clientes
-- result
rowset
row NULL
row NULL
row NULL
row NULL
end
