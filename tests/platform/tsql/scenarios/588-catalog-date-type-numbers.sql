-- syscolumns.xtype and INFORMATION_SCHEMA.COLUMNS.DATA_TYPE name each date type as SQL Server
-- does: date 40, time 41, datetime2 42, smalldatetime 58, datetime 61.
-- run
CREATE TABLE Tipos (a DATE, b TIME, c DATETIME2, d SMALLDATETIME, e DATETIME, f DATETIME2(3), g TIME(0))
-- run
SELECT xtype FROM syscolumns WHERE id = OBJECT_ID('Tipos') ORDER BY colid
-- expect
rowset
row 40
row 41
row 42
row 58
row 61
row 42
row 41
end
-- run
SELECT DATA_TYPE FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'Tipos' ORDER BY ORDINAL_POSITION
-- expect
rowset
row date
row time
row datetime2
row smalldatetime
row datetime
row datetime2
row time
end
