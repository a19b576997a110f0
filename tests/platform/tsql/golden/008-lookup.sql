-- Cursor navigation and lookups.
-- T-SQL
SELECT * FROM clientes WHERE (Flags & 4) <> 0
-- SQLite
SELECT * FROM clientes WHERE (Flags & 4) <> 0
-- PostgreSQL
SELECT * FROM clientes WHERE (Flags & 4) <> 0
-- result
rowset
row 1|Ana|2024-01-31 07:05:09|1|4|NULL|NULL|NULL|NULL|NULL|NULL
end
