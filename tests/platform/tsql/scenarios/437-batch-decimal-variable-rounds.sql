-- A DECIMAL(p,s) variable rounds what it is given to its scale.
-- run
DECLARE @p DECIMAL(10,2) SET @p = 3.456 SELECT @p
-- expect
rowset
row 3.46
end
