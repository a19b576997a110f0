-- Databases and locks.
-- T-SQL
INSERT INTO empresa..locks(tabla, id_zolmar, maquina, usr_windows, usr_zolmar, pid, cuando, tipo, subtipo, ClientName) VALUES ('clientes',4,'PC1','ana',2,311,'20240131 10:00:00',1,'','PC1:311')
-- SQLite
INSERT INTO empresa_locks.locks(tabla, id_zolmar, maquina, usr_windows, usr_zolmar, pid, cuando, tipo, subtipo, ClientName) VALUES ('clientes',4,'PC1','ana',2,311,'2024-01-31 10:00:00',1,'','PC1:311')
-- PostgreSQL
INSERT INTO empresa.locks(tabla, id_zolmar, maquina, usr_windows, usr_zolmar, pid, cuando, tipo, subtipo, ClientName) VALUES ('clientes',4,'PC1','ana',2,311,'2024-01-31 10:00:00',1,'','PC1:311')
-- result
count 1
