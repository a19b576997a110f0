-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
ALTER TABLE clientes ALTER COLUMN Nombre VARCHAR(60)
-- SQLite
ALTER TABLE clientes ALTER COLUMN Nombre VARCHAR(60) COLLATE NOCASE
-- PostgreSQL
ALTER TABLE clientes ALTER COLUMN Nombre TYPE zlx_varchar_60 COLLATE zlx_ci_ai
-- result on SQLite
-- result on PostgreSQL
count -1
