-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
ALTER TABLE clientes ADD Saldo MONEY NOT NULL DEFAULT '0'
-- SQLite
ALTER TABLE clientes ADD Saldo MONEY NOT NULL DEFAULT '0'
-- PostgreSQL
ALTER TABLE clientes ADD Saldo numeric(19,4) NOT NULL DEFAULT '0'
-- result
count -1
