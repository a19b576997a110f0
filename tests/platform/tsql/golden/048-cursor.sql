-- Record cursor: opening, moves over an order and its ties, seeks, finds, refreshes.
-- T-SQL
SELECT TOP 1 * FROM clientes WHERE zolmarID < 5 AND Activo=1 ORDER BY zolmarID DESC
-- SQLite
SELECT * FROM clientes WHERE zolmarID < 5 AND Activo=1 ORDER BY zolmarID DESC LIMIT 1
-- PostgreSQL
SELECT * FROM clientes WHERE zolmarID < 5 AND Activo=1 ORDER BY zolmarID DESC LIMIT 1
-- result
rowset
row 4|B|1753-01-01 00:00:00|1|0|NULL|NULL|NULL|NULL|NULL|NULL
end
