-- Definitions.
-- T-SQL
CREATE INDEX clientes_nombre ON clientes(Nombre)
-- SQLite
CREATE INDEX clientes_clientes_nombre ON clientes(Nombre)
-- PostgreSQL
CREATE INDEX clientes_clientes_nombre ON clientes(Nombre NULLS FIRST)
-- result
count -1
