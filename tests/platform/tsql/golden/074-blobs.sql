-- Blob store.
-- T-SQL
INSERT INTO empresa..BLOBs (Tipo,Nombre) VALUES (1,'Facturas')
-- SQLite
INSERT INTO main.BLOBs (Tipo,Nombre) VALUES (1,'Facturas')
-- PostgreSQL
INSERT INTO empresa.BLOBs (Tipo,Nombre) VALUES (1,'Facturas')
-- result
count 1
