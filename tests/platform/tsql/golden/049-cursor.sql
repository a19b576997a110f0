-- Record cursor: opening, moves over an order and its ties, seeks, finds, refreshes.
-- T-SQL
SELECT TOP 1 APELLIDOS+NOMBRE FROM clientes WHERE ZolmarID=5
-- SQLite
SELECT APELLIDOS||NOMBRE FROM clientes WHERE ZolmarID=5 LIMIT 1
-- PostgreSQL
SELECT APELLIDOS||NOMBRE FROM clientes WHERE ZolmarID=5 LIMIT 1
-- result
rowset
end
