-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
ALTER TABLE clientes ADD Apertura TIME
-- SQLite
ALTER TABLE clientes ADD Apertura TIME
-- PostgreSQL
ALTER TABLE clientes ADD Apertura TIME
-- result
count -1
