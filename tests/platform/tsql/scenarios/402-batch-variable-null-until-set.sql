-- A declared variable is NULL until something is assigned to it.
-- run
DECLARE @v INT, @s VARCHAR(10) SELECT @v, ISNULL(@s, 'nada')
-- expect
rowset
row NULL|nada
end
