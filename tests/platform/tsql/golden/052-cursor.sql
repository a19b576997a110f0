-- Record cursor: opening, moves over an order and its ties, seeks, finds, refreshes.
-- T-SQL
SELECT TOP 1 * FROM clientes WHERE NOMBRE = 'Eva' ORDER BY ZolmarID DESC
-- SQLite
SELECT * FROM clientes WHERE NOMBRE = 'Eva' ORDER BY ZolmarID DESC LIMIT 1
-- PostgreSQL
SELECT * FROM clientes WHERE NOMBRE = 'Eva' ORDER BY ZolmarID DESC LIMIT 1
-- result
rowset
end
