-- A VARCHAR variable declared without a length holds one character.
-- run
DECLARE @s VARCHAR SET @s = 'hola' SELECT @s
-- expect
rowset
row h
end
