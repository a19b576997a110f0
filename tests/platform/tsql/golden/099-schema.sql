-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
ALTER TABLE clientes ADD Precio DECIMAL(12,2) NOT NULL DEFAULT '1.5'
-- SQLite
ALTER TABLE clientes ADD Precio DECIMAL(12,2) NOT NULL DEFAULT '1.5'
-- PostgreSQL
ALTER TABLE clientes ADD Precio zlx_decimal_12_2 NOT NULL DEFAULT '1.5'
-- result
count -1
