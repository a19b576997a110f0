-- CAST and CONVERT to VARBINARY(MAX): a binary value stays as it is; a text becomes the bytes
-- SQL Server keeps of it, a byte a character in code page 1252 (ñ is 0xF1, € 0x80) with its
-- trailing blanks, two a character, the low byte first, for a national text.
-- run
SELECT CASE WHEN CAST('ab ' AS VARBINARY(MAX)) = 0x616220 THEN 1 ELSE 0 END, CASE WHEN CAST(N'añ' AS VARBINARY(MAX)) = 0x6100F100 THEN 1 ELSE 0 END, CASE WHEN CONVERT(VARBINARY(MAX), 'ñ€') = 0xF180 THEN 1 ELSE 0 END, DATALENGTH(CAST(N'ab ' AS VARBINARY(MAX))), DATALENGTH(CAST(0x00FF AS VARBINARY(MAX)))
-- expect
rowset
row 1|1|1|6|2
end
-- run
CREATE TABLE adjuntos (id INT, firma VARBINARY(10), nombre NVARCHAR(10), clave VARCHAR(10))
-- run
INSERT INTO adjuntos VALUES (1, 0xABCD, N'Ñu', 'Ñu ')
INSERT INTO adjuntos VALUES (2, NULL, NULL, NULL)
-- run
SELECT id, DATALENGTH(CAST(firma AS VARBINARY(MAX))), DATALENGTH(CAST(nombre AS VARBINARY(MAX))), DATALENGTH(CAST(clave AS VARBINARY(MAX))) FROM adjuntos ORDER BY id
-- expect
rowset
row 1|2|4|3
row 2|NULL|NULL|NULL
end
-- run
SELECT id FROM adjuntos WHERE CAST(firma AS VARBINARY(MAX)) = 0xABCD AND CAST(nombre AS VARBINARY(MAX)) = 0xD1007500 AND CAST(clave AS VARBINARY(MAX)) = 0xD17520
-- expect
rowset
row 1
end
