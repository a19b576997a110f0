-- Record cursor: opening, moves over an order and its ties, seeks, finds, refreshes.
-- T-SQL
SELECT * FROM clientes WHERE zolmarID = 5
-- SQLite
SELECT * FROM clientes WHERE zolmarID = 5
-- PostgreSQL
SELECT * FROM clientes WHERE zolmarID = 5
-- result
rowset
end
