-- Record cursor writes: insert, identity repair, delete, status, duplicates, highest identity.
-- T-SQL
INSERT INTO clientes(Nombre,Flags,Alta) VALUES ('Eva',4,'31/01/2024 10:15:00')
-- SQLite
INSERT INTO clientes(Nombre,Flags,Alta) VALUES ('Eva',4,'2024-01-31 10:15:00')
-- PostgreSQL
INSERT INTO clientes(Nombre,Flags,Alta) VALUES ('Eva',4,'2024-01-31 10:15:00')
-- result
count 1
