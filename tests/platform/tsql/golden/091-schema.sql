-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
ALTER TABLE clientes ADD Serie CHAR(2) NOT NULL DEFAULT 'A'
-- SQLite
ALTER TABLE clientes ADD Serie CHAR(2) COLLATE NOCASE CONSTRAINT "zlx_8152_Serie" CHECK (length(rtrim(Serie)) <= 2) NOT NULL DEFAULT 'A'
-- PostgreSQL
ALTER TABLE clientes ADD Serie CHAR(2) COLLATE zlx_ci_ai NOT NULL DEFAULT 'A'
-- result
count -1
