-- COLUMNPROPERTY answers a column's properties: AllowsNull 1 or 0, IsIdentity 1 or 0, ColumnId
-- its place, Precision and Scale those of its type, IsComputed 0; NULL for an unknown property
-- or column.
-- run
CREATE TABLE fichas (id INT IDENTITY(1, 1) PRIMARY KEY, nombre VARCHAR(30) NOT NULL, importe DECIMAL(9, 2) NULL)
-- run
SELECT COLUMNPROPERTY(OBJECT_ID('fichas'), 'id', 'IsIdentity'), COLUMNPROPERTY(OBJECT_ID('fichas'), 'nombre', 'IsIdentity'), COLUMNPROPERTY(OBJECT_ID('fichas'), 'nombre', 'AllowsNull'), COLUMNPROPERTY(OBJECT_ID('fichas'), 'importe', 'AllowsNull')
-- expect
rowset
row 1|0|0|1
end
-- run
SELECT COLUMNPROPERTY(OBJECT_ID('fichas'), 'importe', 'Precision'), COLUMNPROPERTY(OBJECT_ID('fichas'), 'importe', 'Scale'), COLUMNPROPERTY(OBJECT_ID('fichas'), 'nombre', 'Precision'), COLUMNPROPERTY(OBJECT_ID('fichas'), 'id', 'Precision'), COLUMNPROPERTY(OBJECT_ID('fichas'), 'importe', 'ColumnId'), COLUMNPROPERTY(OBJECT_ID('fichas'), 'id', 'IsComputed')
-- expect
rowset
row 9|2|30|10|3|0
end
-- run
SELECT COLUMNPROPERTY(OBJECT_ID('fichas'), 'no_existe', 'AllowsNull'), COLUMNPROPERTY(OBJECT_ID('fichas'), 'id', 'NoEsUnaPropiedad')
-- expect
rowset
row NULL|NULL
end
