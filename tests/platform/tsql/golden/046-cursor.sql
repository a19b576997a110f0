-- Record cursor: opening, moves over an order and its ties, seeks, finds, refreshes.
-- T-SQL
SELECT TOP 1 *, NOMBRE AS LastExpressionForMoveWithOrder FROM clientes WHERE Activo=1
-- SQLite
SELECT *, NOMBRE AS LastExpressionForMoveWithOrder FROM clientes WHERE Activo=1 LIMIT 1
-- PostgreSQL
SELECT *, NOMBRE AS LastExpressionForMoveWithOrder FROM clientes WHERE Activo=1 LIMIT 1
-- result
rowset
row 1|Ana|2024-01-31 07:05:09|1|4|NULL|NULL|NULL|NULL|NULL|NULL|Ana
end
