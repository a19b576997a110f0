-- Blob store.
-- T-SQL
SELECT ZolmarID, Contenido FROM empresa..BLOBs WHERE ZolmarID=1
-- SQLite
SELECT ZolmarID, Contenido FROM main.BLOBs WHERE ZolmarID=1
-- PostgreSQL
SELECT ZolmarID, Contenido FROM empresa.BLOBs WHERE ZolmarID=1
-- result
rowset
row 1|NULL
end
