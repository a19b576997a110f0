-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
ALTER TABLE clientes ADD Observaciones TEXT
-- SQLite
ALTER TABLE clientes ADD Observaciones TEXT COLLATE NOCASE
-- PostgreSQL
ALTER TABLE clientes ADD Observaciones zlx_text COLLATE zlx_ci_ai
-- result
count -1
