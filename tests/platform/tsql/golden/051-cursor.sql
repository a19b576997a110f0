-- Record cursor: opening, moves over an order and its ties, seeks, finds, refreshes.
-- T-SQL
SELECT TOP 1 APELLIDOS+NOMBRE FROM clientes WHERE APELLIDOS+NOMBRE > 'GarcíaAna' AND Activo=1 ORDER BY APELLIDOS+NOMBRE
-- SQLite
SELECT APELLIDOS||NOMBRE FROM clientes WHERE APELLIDOS||NOMBRE > 'GarcíaAna' AND Activo=1 ORDER BY APELLIDOS||NOMBRE LIMIT 1
-- PostgreSQL
SELECT APELLIDOS||NOMBRE FROM clientes WHERE APELLIDOS||NOMBRE > 'GarcíaAna' AND Activo=1 ORDER BY APELLIDOS||NOMBRE NULLS FIRST LIMIT 1
-- result
rowset
end
