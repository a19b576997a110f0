-- Writes.
-- T-SQL
INSERT INTO clientes(Nombre,Activo,Alta) VALUES ('Ana',DEFAULT,'20240131')
-- SQLite
INSERT INTO clientes(Nombre,Alta) VALUES ('Ana','2024-01-31 00:00:00')
-- PostgreSQL
INSERT INTO clientes(Nombre,Activo,Alta) VALUES ('Ana',DEFAULT,'2024-01-31 00:00:00')
-- result
count 1
