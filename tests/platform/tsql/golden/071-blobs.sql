-- Blob store.
-- T-SQL
SELECT Contenido FROM empresa..BLOBs WHERE nombre='Facturas' AND tipo=1
-- SQLite
SELECT Contenido FROM main.BLOBs WHERE nombre='Facturas' AND tipo=1
-- PostgreSQL
SELECT Contenido FROM empresa.BLOBs WHERE nombre='Facturas' AND tipo=1
-- result
rowset
end
