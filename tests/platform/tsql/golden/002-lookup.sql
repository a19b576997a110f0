-- Cursor navigation and lookups.
-- T-SQL
SELECT TOP 1 *, Nombre AS LastExpressionForMoveWithOrder FROM clientes WHERE Nombre = 'Ana' AND  zolmarID < 7 ORDER BY zolmarID DESC
-- SQLite
SELECT *, Nombre AS LastExpressionForMoveWithOrder FROM clientes WHERE Nombre = 'Ana' AND  zolmarID < 7 ORDER BY zolmarID DESC LIMIT 1
-- PostgreSQL
SELECT *, Nombre AS LastExpressionForMoveWithOrder FROM clientes WHERE Nombre = 'Ana' AND  zolmarID < 7 ORDER BY zolmarID DESC LIMIT 1
-- result
rowset
row 1|Ana|2024-01-31 07:05:09|1|4|NULL|NULL|NULL|NULL|NULL|NULL|Ana
end
