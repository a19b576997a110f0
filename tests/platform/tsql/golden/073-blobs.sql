-- Blob store.
-- T-SQL
SELECT ZolmarID FROM empresa..BLOBs WHERE nombre='Facturas' AND tipo=1
-- SQLite
SELECT ZolmarID FROM main.BLOBs WHERE nombre='Facturas' AND tipo=1
-- PostgreSQL
SELECT ZolmarID FROM empresa.BLOBs WHERE nombre='Facturas' AND tipo=1
-- result
rowset
end
