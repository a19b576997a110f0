-- TRY_CAST and TRY_CONVERT to a number type answer what CAST and CONVERT answer, or NULL where the
-- conversion fails (a word, a text that is no whole number for an integer type, a value past the
-- type's range, more digits than a DECIMAL holds); a style changes nothing for numbers. A DATE
-- never becomes a number: 529, even in TRY_CAST.
-- run
SELECT TRY_CAST('12' AS INT), TRY_CAST(' 7 ' AS INT), TRY_CAST('doce' AS INT), TRY_CAST('12.5' AS INT), TRY_CAST('300' AS TINYINT), TRY_CAST(300 AS TINYINT), TRY_CAST(12.7 AS INT), TRY_CAST(NULL AS INT), TRY_CAST('' AS INT)
-- expect
rowset
row 12|7|NULL|NULL|NULL|NULL|12|NULL|0
end
-- run
SELECT TRY_CAST('12.345' AS DECIMAL(5,2)), TRY_CAST('abc' AS DECIMAL(5,2)), TRY_CAST('12345' AS DECIMAL(5,2)), TRY_CONVERT(DECIMAL(10,2), '7.25'), TRY_CAST('1.5e3' AS FLOAT), TRY_CAST('uno' AS FLOAT), TRY_CONVERT(INT, 'x', 1), TRY_CONVERT(BIGINT, '9000000000')
-- expect
rowset
row 12.35|NULL|NULL|7.25|1500|NULL|NULL|9000000000
end
-- run
CREATE TABLE importes (id INT, texto VARCHAR(20), fecha DATE)
INSERT INTO importes VALUES (1, '15', '2024-03-15')
INSERT INTO importes VALUES (2, 'quince', NULL)
INSERT INTO importes VALUES (3, '15.25', NULL)
INSERT INTO importes VALUES (4, '99999999999', NULL)
-- run
SELECT id, TRY_CAST(texto AS INT), TRY_CONVERT(DECIMAL(6,2), texto), TRY_CAST(texto AS INT) + 1 FROM importes WHERE id > 1 ORDER BY id
-- expect
rowset
row 2|NULL|NULL|NULL
row 3|NULL|15.25|NULL
row 4|NULL|NULL|NULL
end
-- run
SELECT SUM(TRY_CAST(texto AS INT)), COUNT(TRY_CAST(texto AS BIGINT)), COUNT(*) FROM importes WHERE TRY_CAST(texto AS FLOAT) IS NOT NULL
-- expect
rowset
row 15|2|3
end
-- run
SELECT TRY_CAST(fecha AS INT) FROM importes
-- expect
error 529
