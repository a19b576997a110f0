-- Definitions.
-- T-SQL
ALTER TABLE clientes DROP COLUMN Nota
-- SQLite
ALTER TABLE clientes DROP COLUMN Nota
-- PostgreSQL
ALTER TABLE clientes DROP COLUMN Nota
-- result
count -1
