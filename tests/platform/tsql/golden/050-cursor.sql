-- Record cursor: opening, moves over an order and its ties, seeks, finds, refreshes.
-- T-SQL
SELECT TOP 1 * FROM clientes WHERE APELLIDOS+NOMBRE = 'GarcíaAna' AND  zolmarID > 5 AND Activo=1 ORDER BY zolmarID
-- SQLite
SELECT * FROM clientes WHERE APELLIDOS||NOMBRE = 'GarcíaAna' AND  zolmarID > 5 AND Activo=1 ORDER BY zolmarID LIMIT 1
-- PostgreSQL
SELECT * FROM clientes WHERE APELLIDOS||NOMBRE = 'GarcíaAna' AND  zolmarID > 5 AND Activo=1 ORDER BY zolmarID LIMIT 1
-- result
rowset
end
