-- Blob store.
-- T-SQL
DELETE FROM empresa..BLOBs WHERE nombre='Facturas' AND tipo=1
-- SQLite
DELETE FROM main.BLOBs WHERE nombre='Facturas' AND tipo=1
-- PostgreSQL
DELETE FROM empresa.BLOBs WHERE nombre='Facturas' AND tipo=1
-- result
count 1
