-- Record cursor: opening, moves over an order and its ties, seeks, finds, refreshes.
-- T-SQL
SELECT TOP 1 * FROM clientes WHERE zolmarID = 5
-- SQLite
SELECT * FROM clientes WHERE zolmarID = 5 LIMIT 1
-- PostgreSQL
SELECT * FROM clientes WHERE zolmarID = 5 LIMIT 1
-- result
rowset
end
