-- IDENT_SEED, IDENT_INCR and IDENT_CURRENT answer of a table's identity: its seed, its step and
-- the last value it handed out (its seed before the first; deleting the rows keeps it); NULL
-- for a table without identity or no table. OBJECT_NAME answers the name OBJECT_ID numbers.
-- run
CREATE TABLE ident_a (id INT IDENTITY(100, 5) PRIMARY KEY, nombre VARCHAR(10))
CREATE TABLE ident_b (id INT IDENTITY PRIMARY KEY, nombre VARCHAR(10))
CREATE TABLE ident_c (nombre VARCHAR(10))
-- run
SELECT IDENT_SEED('ident_a'), IDENT_INCR('ident_a'), IDENT_CURRENT('ident_a'), IDENT_SEED('ident_b'), IDENT_INCR('ident_b'), IDENT_CURRENT('ident_b')
-- expect
rowset
row 100|5|100|1|1|1
end
-- run
SELECT IDENT_SEED('ident_c'), IDENT_INCR('ident_c'), IDENT_CURRENT('ident_c'), IDENT_CURRENT('no_existe')
-- expect
rowset
row NULL|NULL|NULL|NULL
end
-- run
INSERT INTO ident_a (nombre) VALUES ('uno')
INSERT INTO ident_a (nombre) VALUES ('dos')
INSERT INTO ident_b (nombre) VALUES ('uno')
-- run
SELECT IDENT_CURRENT('ident_a'), IDENT_CURRENT('ident_b'), IDENT_CURRENT('ident_a') + IDENT_INCR('ident_a')
-- expect
rowset
row 105|1|110
end
-- run
DELETE FROM ident_a
SELECT IDENT_CURRENT('ident_a')
-- expect
count 2
rowset
row 105
end
-- run
SELECT OBJECT_NAME(OBJECT_ID('ident_b')), OBJECT_NAME(OBJECT_ID('no_existe')), CASE WHEN OBJECT_NAME(OBJECT_ID('ident_c')) = 'IDENT_C' THEN 'sí' END
-- expect
rowset
row ident_b|NULL|sí
end
