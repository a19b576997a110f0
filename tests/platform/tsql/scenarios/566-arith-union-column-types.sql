-- The columns of UNION, EXCEPT and INTERSECT take the type of highest precedence among the
-- branches: a text beside integers is read as an integer ('5' is 5), a word is error 245, in
-- any branch of three; texts beside texts stay texts.
-- run
CREATE TABLE t (n INT, nombre VARCHAR(10))
-- run
INSERT INTO t VALUES (1, 'uno')
-- run
SELECT n FROM t UNION ALL SELECT '5' UNION SELECT 7 ORDER BY 1
-- expect
rowset
row 1
row 5
row 7
end
-- run
SELECT SUM(x) FROM (SELECT n AS x FROM t UNION ALL SELECT '41') u
-- expect
rowset
row 42
end
-- run
SELECT 'a' UNION SELECT n FROM t UNION SELECT 'b'
-- expect
error 245
-- run
SELECT nombre FROM t UNION SELECT 'dos' ORDER BY 1
-- expect
rowset
row dos
row uno
end
