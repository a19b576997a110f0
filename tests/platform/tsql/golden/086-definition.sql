-- Definitions.
-- Run after the other statements, it fails on both engines: neither engine takes several columns in one ADD yet.
-- T-SQL
ALTER TABLE clientes ADD Nota NVARCHAR(40), Importe MONEY, Baja BIT
-- SQLite
ALTER TABLE clientes ADD Nota NVARCHAR(40) COLLATE NOCASE, Importe MONEY, Baja BIT
-- PostgreSQL
ALTER TABLE clientes ADD Nota varchar(40) COMPRESSION pglz COLLATE zlx_ci_ai, Importe numeric(19,4), Baja zlx_bit
-- result
error 102
