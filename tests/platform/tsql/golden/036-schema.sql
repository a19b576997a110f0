-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
CREATE INDEX Nombre ON clientes(Nombre)
-- SQLite
CREATE INDEX clientes_Nombre ON clientes(Nombre)
-- PostgreSQL
CREATE INDEX clientes_Nombre ON clientes(Nombre NULLS FIRST)
-- result
count -1
