-- A binary value cast to a text type is the text its bytes hold, a character a byte in code page
-- 1252 (0xF1 is ñ, 0x80 €) or, for NCHAR and NVARCHAR, one every two bytes, the low byte first;
-- cut to the type's length and padded for CHAR(n). CONVERT's style 1 writes the bytes'
-- hexadecimal digits after 0x and style 2 the digits alone (cut to the length too).
-- run
SELECT CAST(0x616263 AS VARCHAR(10)), CONVERT(VARCHAR, 0x616263), CAST(0xF180 AS VARCHAR(5)), CAST(0x6100F100 AS NVARCHAR(10)), CAST(0x616263 AS VARCHAR(2)), '[' + CAST(0x6162 AS CHAR(4)) + ']'
-- expect
rowset
row abc|abc|ñ€|añ|ab|[ab  ]
end
-- run
SELECT '[' + CONVERT(CHAR(8), 0x4E616d65, 0) + ']', CONVERT(CHAR(8), 0x4E616d65, 1), CONVERT(CHAR(8), 0x4E616d65, 2), CONVERT(VARCHAR(20), 0x4E616d65, 1)
-- expect
rowset
row [Name    ]|0x4E616D|4E616D65|0x4E616D65
end
-- run
CREATE TABLE firmas (id INT, dato VARBINARY(20), foto IMAGE)
INSERT INTO firmas VALUES (1, 0x486F6C61, 0x4F4B)
INSERT INTO firmas VALUES (2, NULL, NULL)
-- run
SELECT id, CAST(dato AS VARCHAR(20)), CONVERT(VARCHAR(20), dato, 1), CONVERT(NVARCHAR(10), dato), CAST(CAST(foto AS VARBINARY(MAX)) AS VARCHAR(10)) FROM firmas ORDER BY id
-- expect
rowset
row 1|Hola|0x486F6C61|潈慬|OK
row 2|NULL|NULL|NULL|NULL
end
-- run
SELECT id FROM firmas WHERE CAST(dato AS VARCHAR(20)) = 'HOLA'
-- expect
rowset
row 1
end
