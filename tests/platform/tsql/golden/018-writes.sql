-- Writes.
-- T-SQL
INSERT INTO clientes (Activo) VALUES (DEFAULT)
-- SQLite
INSERT INTO clientes DEFAULT VALUES
-- PostgreSQL
INSERT INTO clientes (Activo) VALUES (DEFAULT)
-- result
count 1
