-- Record cursor: opening, moves over an order and its ties, seeks, finds, refreshes.
-- T-SQL
SELECT TOP 1 * FROM empresa..clientes ORDER BY ZOLMARID
-- SQLite
SELECT * FROM main.clientes ORDER BY ZOLMARID LIMIT 1
-- PostgreSQL
SELECT * FROM empresa.clientes ORDER BY ZOLMARID LIMIT 1
-- result
rowset
row 1|Ana|2024-01-31 07:05:09|1|4|NULL|NULL|NULL|NULL|NULL|NULL
end
