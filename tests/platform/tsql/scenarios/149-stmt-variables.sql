-- DECLARE, SET and SELECT of a local variable.
-- gap sqlite: DECLARE @v INT SET @v = 5 SELECT @v * 2 answers error 102, not row 10
-- gap postgres: DECLARE @v INT SET @v = 5 SELECT @v * 2 answers error 102, not row 10
-- run
DECLARE @v INT SET @v = 5 SELECT @v * 2
-- expect
rowset
row 10
end
