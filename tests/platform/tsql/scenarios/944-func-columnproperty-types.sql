-- COLUMNPROPERTY's Precision is a type's digits or length (-1 for a (MAX) type) and its Scale
-- the places of a number type, NULL for texts, binary values and FLOAT; a table that is none
-- answers NULL.
-- run
CREATE TABLE medidas (a MONEY NOT NULL, b FLOAT, c VARBINARY(MAX), d NVARCHAR(20), e BIT, f DATETIME, g SMALLINT)
-- run
SELECT COLUMNPROPERTY(OBJECT_ID('medidas'), 'a', 'Precision'), COLUMNPROPERTY(OBJECT_ID('medidas'), 'a', 'Scale'), COLUMNPROPERTY(OBJECT_ID('medidas'), 'a', 'AllowsNull'), COLUMNPROPERTY(OBJECT_ID('medidas'), 'b', 'Precision'), COLUMNPROPERTY(OBJECT_ID('medidas'), 'b', 'Scale'), COLUMNPROPERTY(OBJECT_ID('medidas'), 'c', 'Precision'), COLUMNPROPERTY(OBJECT_ID('medidas'), 'd', 'Precision'), COLUMNPROPERTY(OBJECT_ID('medidas'), 'd', 'Scale')
-- expect
rowset
row 19|4|0|53|NULL|-1|20|NULL
end
-- run
SELECT COLUMNPROPERTY(OBJECT_ID('medidas'), 'e', 'Precision'), COLUMNPROPERTY(OBJECT_ID('medidas'), 'f', 'Precision'), COLUMNPROPERTY(OBJECT_ID('medidas'), 'f', 'Scale'), COLUMNPROPERTY(OBJECT_ID('medidas'), 'g', 'Precision'), COLUMNPROPERTY(OBJECT_ID('medidas'), 'g', 'ColumnId'), COLUMNPROPERTY(OBJECT_ID('no_existe'), 'a', 'Precision')
-- expect
rowset
row 1|23|3|5|7|NULL
end
