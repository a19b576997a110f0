-- Record cursor: opening, moves over an order and its ties, seeks, finds, refreshes.
-- T-SQL
SELECT TOP 1 * FROM clientes WHERE Activo=1 ORDER BY NOMBRE
-- SQLite
SELECT * FROM clientes WHERE Activo=1 ORDER BY NOMBRE LIMIT 1
-- PostgreSQL
SELECT * FROM clientes WHERE Activo=1 ORDER BY NOMBRE NULLS FIRST LIMIT 1
-- result
rowset
row 2||1753-01-01 00:00:00|1|0|NULL|NULL|NULL|NULL|NULL|NULL
end
