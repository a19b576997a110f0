-- Record cursor: opening, moves over an order and its ties, seeks, finds, refreshes.
-- T-SQL
SELECT * FROM clientes
-- SQLite
SELECT * FROM clientes
-- PostgreSQL
SELECT * FROM clientes
-- result
rowset
row 1|Ana|2024-01-31 07:05:09|1|4|NULL|NULL|NULL|NULL|NULL|NULL
row 2||1753-01-01 00:00:00|1|0|NULL|NULL|NULL|NULL|NULL|NULL
row 3|Ana|2024-01-31 00:00:00|1|0|NULL|NULL|NULL|NULL|NULL|NULL
row 4|B|1753-01-01 00:00:00|1|0|NULL|NULL|NULL|NULL|NULL|NULL
end
