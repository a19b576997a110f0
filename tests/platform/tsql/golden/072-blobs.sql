-- Blob store.
-- T-SQL
SELECT Contenido FROM empresa..BLOBs WHERE nombre='Facturas'
-- SQLite
SELECT Contenido FROM main.BLOBs WHERE nombre='Facturas'
-- PostgreSQL
SELECT Contenido FROM empresa.BLOBs WHERE nombre='Facturas'
-- result
rowset
end
