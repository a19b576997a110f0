-- CHARINDEX finds the text whatever its case and accents.
-- run
SELECT CHARINDEX('JOSÉ', 'hola jose'), CHARINDEX('n', 'ñu')
-- expect
rowset
row 6|0
end
