-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
ALTER TABLE clientes ADD Apertura TIME
-- SQLite
ALTER TABLE clientes ADD Apertura TIME
-- PostgreSQL
ALTER TABLE clientes ADD Apertura time(6)
-- result
count -1
