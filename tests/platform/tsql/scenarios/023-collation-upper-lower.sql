-- UPPER and LOWER change accented letters and ñ too.
-- run
SELECT UPPER('ñandú camión'), LOWER('ÁRBOL ÑU')
-- expect
rowset
row ÑANDÚ CAMIÓN|árbol ñu
end
