-- Definitions.
-- Several columns in one ADD (Nota again, after 082 dropped it): the engines add them one at a time.
-- T-SQL
ALTER TABLE clientes ADD Nota NVARCHAR(40), Importe MONEY, Baja BIT
-- SQLite
ALTER TABLE clientes ADD Nota NVARCHAR(40) COLLATE NOCASE CONSTRAINT "zlx_8152_Nota" CHECK (length(rtrim(Nota)) <= 40), Importe MONEY, Baja BIT
-- PostgreSQL
ALTER TABLE clientes ADD Nota zlx_nvarchar_40 COLLATE zlx_ci_ai, Importe numeric(19,4), Baja zlx_bit
-- result
count -1
count -1
count -1
