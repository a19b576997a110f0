-- DECLARE, SET and SELECT of a local variable.
-- run
DECLARE @v INT SET @v = 5 SELECT @v * 2
-- expect
rowset
row 10
end
