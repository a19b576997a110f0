-- Record cursor: opening, moves over an order and its ties, seeks, finds, refreshes.
-- T-SQL
SELECT TOP 1 * FROM clientes WHERE (Nombre LIKE 'A%') AND (Activo=1) ORDER BY NOMBRE
-- SQLite
SELECT * FROM clientes WHERE (Nombre LIKE 'A%') AND (Activo=1) ORDER BY NOMBRE LIMIT 1
-- PostgreSQL
SELECT * FROM clientes WHERE (Nombre ~~~ ('A%')) AND (Activo=1) ORDER BY NOMBRE NULLS FIRST LIMIT 1
-- result
rowset
row 1|Ana|2024-01-31 07:05:09|1|4|NULL|NULL|NULL|NULL|NULL|NULL
end
