-- Writes.
-- T-SQL
INSERT INTO clientes DEFAULT VALUES
-- SQLite
INSERT INTO clientes DEFAULT VALUES
-- PostgreSQL
INSERT INTO clientes DEFAULT VALUES
-- result
count 1
