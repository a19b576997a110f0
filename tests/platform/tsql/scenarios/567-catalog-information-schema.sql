-- INFORMATION_SCHEMA.TABLES and .COLUMNS list the current database's tables and columns as
-- SQL Server does, names compared without regard to case: the check an upgrade script makes
-- before adding a column finds the column that is there and not the one that is not.
-- (PostgreSQL keeps names in lower case: the names are shown upper-cased.)
-- run
CREATE TABLE Clientes (Codigo INT NOT NULL, Nombre VARCHAR(40), Saldo DECIMAL(10,2), Notas NVARCHAR(20))
-- run
SELECT TABLE_SCHEMA, UPPER(TABLE_NAME), TABLE_TYPE FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_NAME = 'clientes'
-- expect
rowset
row dbo|CLIENTES|BASE TABLE
end
-- run
SELECT UPPER(COLUMN_NAME), ORDINAL_POSITION, IS_NULLABLE, DATA_TYPE, CHARACTER_MAXIMUM_LENGTH
FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'Clientes' ORDER BY ORDINAL_POSITION
-- expect
rowset
row CODIGO|1|NO|int|NULL
row NOMBRE|2|YES|varchar|40
row SALDO|3|YES|{any}|NULL
row NOTAS|4|YES|nvarchar|20
end
-- run
IF NOT EXISTS (SELECT * FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'Clientes' AND COLUMN_NAME = 'nombre')
    ALTER TABLE Clientes ADD Nombre VARCHAR(40)
IF NOT EXISTS (SELECT * FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'Clientes' AND COLUMN_NAME = 'Email')
    ALTER TABLE Clientes ADD Email VARCHAR(60)
-- run
SELECT COUNT(*) FROM information_schema.columns WHERE table_name = 'CLIENTES'
-- expect
rowset
row 5
end
