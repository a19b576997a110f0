-- Record cursor: opening, moves over an order and its ties, seeks, finds, refreshes.
-- T-SQL
SELECT TOP 1 NOMBRE FROM clientes WHERE NOMBRE < 'Eva' ORDER BY NOMBRE DESC
-- SQLite
SELECT NOMBRE FROM clientes WHERE NOMBRE < 'Eva' ORDER BY NOMBRE DESC LIMIT 1
-- PostgreSQL
SELECT NOMBRE FROM clientes WHERE NOMBRE < 'Eva' ORDER BY NOMBRE DESC NULLS LAST LIMIT 1
-- result
rowset
row B
end
