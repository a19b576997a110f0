-- Definitions.
-- T-SQL
ALTER TABLE clientes ALTER COLUMN Nombre NVARCHAR(60)
-- SQLite
ALTER TABLE clientes ALTER COLUMN Nombre NVARCHAR(60) COLLATE NOCASE
-- PostgreSQL
ALTER TABLE clientes ALTER COLUMN Nombre TYPE zlx_nvarchar_60 COLLATE zlx_ci_ai
-- result on SQLite
-- result on PostgreSQL
count -1
