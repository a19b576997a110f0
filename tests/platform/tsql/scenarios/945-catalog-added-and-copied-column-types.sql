-- Columns added, changed or copied keep what syscolumns and INFORMATION_SCHEMA tell of their
-- type: ALTER COLUMN to DECIMAL, ADD of VARBINARY and DEC (DECIMAL's other name), SELECT ...
-- INTO of a DECIMAL column and of a CAST to DECIMAL.
-- run
CREATE TABLE t9 (id INT, a DECIMAL(9,2), b VARBINARY(10))
INSERT INTO t9 VALUES (1, 2.5, 0x41)
ALTER TABLE t9 ALTER COLUMN a DECIMAL(12,3)
ALTER TABLE t9 ADD c VARBINARY(20) NULL, d DEC(5,1)
SELECT a, CAST(a AS DECIMAL(5,1)) AS e INTO t10 FROM t9
-- run
SELECT xtype, length FROM syscolumns WHERE id = OBJECT_ID('t10') ORDER BY colid
-- expect
rowset
row 106|9
row 106|5
end
-- run
SELECT DATA_TYPE FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 't9' ORDER BY ORDINAL_POSITION
-- expect
rowset
row int
row decimal
row varbinary
row varbinary
row decimal
end
