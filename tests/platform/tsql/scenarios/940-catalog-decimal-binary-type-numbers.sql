-- syscolumns and INFORMATION_SCHEMA.COLUMNS name DECIMAL and NUMERIC, VARBINARY(n),
-- VARBINARY(MAX), BINARY(n), IMAGE and VARCHAR(MAX) columns as SQL Server does: decimal 106,
-- numeric 108, varbinary 165 (length n, -1 for MAX), binary 173, image 34, a (MAX) text -1.
-- Values stored in them compute and read back as before.
-- run
CREATE TABLE TiposBinarios (a DECIMAL(9,2), b NUMERIC(12,3), c VARBINARY(16), d VARBINARY(MAX), e IMAGE, f VARCHAR(MAX), g BINARY(4))
INSERT INTO TiposBinarios (a, b, c, d) VALUES (12.5, 3.25, 0x4142, 0x43)
-- run
SELECT xtype, length FROM syscolumns WHERE id = OBJECT_ID('TiposBinarios') ORDER BY colid
-- expect
rowset
row 106|5
row 108|9
row 165|16
row 165|-1
row 34|16
row 167|-1
row 173|4
end
-- run
SELECT DATA_TYPE, CHARACTER_MAXIMUM_LENGTH FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'TiposBinarios' ORDER BY ORDINAL_POSITION
-- expect
rowset
row decimal|NULL
row numeric|NULL
row varbinary|16
row varbinary|-1
row image|2147483647
row varchar|-1
row binary|4
end
-- run
SELECT a * 2, a + b, CAST(c AS VARCHAR(10)), DATALENGTH(d) FROM TiposBinarios
-- expect
rowset
row 25|15.75|AB|1
end
