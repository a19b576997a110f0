-- A column of UNION, EXCEPT or INTERSECT whose other branches give DECIMAL, NUMERIC, MONEY,
-- FLOAT or REAL values reads its texts as the column's type: a DECIMAL holding every branch's
-- whole digits and places (an INT counts ten digits), so '1.255' beside 1.5, 2.25 and 10 is
-- 1.26; a text past those digits is error 8115, a word 8114.
-- run
SELECT '1.255' AS v UNION ALL SELECT 1.5 UNION ALL SELECT 2.25 x UNION ALL SELECT 10
-- expect
rowset
row 1.26
row 1.5
row 2.25
row 10
end
-- run
SELECT '1.25' UNION ALL SELECT 1.5
-- expect
rowset
row 1.3
row 1.5
end
-- run
SELECT '10.5' UNION ALL SELECT 1.5
-- expect
error 8115
-- run
SELECT 'x' UNION SELECT 1.5E0
-- expect
error 8114
-- run
CREATE TABLE importes (id INT, texto VARCHAR(10), precio MONEY, tasa REAL, total NUMERIC(7,2))
-- run
INSERT INTO importes VALUES (1, ' 2.5', 3.125, 0.5, 100.25)
INSERT INTO importes VALUES (2, '100.25', 1, 2, 7)
-- run
SELECT texto FROM importes UNION SELECT total FROM importes ORDER BY 1
-- expect
rowset
row 2.5
row 7
row 100.25
end
-- run
SELECT SUM(x) FROM (SELECT precio AS x FROM importes UNION ALL SELECT '0.125' UNION ALL SELECT texto FROM importes WHERE id = 1) u
-- expect
rowset
row 6.75
end
-- run
SELECT '0.50' INTERSECT SELECT tasa FROM importes
-- expect
rowset
row 0.5
end
-- run
SELECT texto FROM importes EXCEPT SELECT precio FROM importes
-- expect
rowset
row 2.5
row 100.25
end
-- run
UPDATE importes SET texto = 'mucho' WHERE id = 2
-- run
SELECT total FROM importes UNION ALL SELECT texto FROM importes
-- expect
error 8114
