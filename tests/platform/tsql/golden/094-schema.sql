-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
ALTER TABLE clientes ADD Descuento FLOAT
-- SQLite
ALTER TABLE clientes ADD Descuento FLOAT
-- PostgreSQL
ALTER TABLE clientes ADD Descuento double precision
-- result
count -1
