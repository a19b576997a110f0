-- An IMAGE value converts only to a binary type: cast to a text type it is error 529, and its
-- text is read through VARBINARY(MAX).
-- run
CREATE TABLE adjuntos (id INT, foto IMAGE)
INSERT INTO adjuntos VALUES (1, 0x4F4B)
-- run
SELECT CAST(CAST(foto AS VARBINARY(MAX)) AS VARCHAR(10)) FROM adjuntos
-- expect
rowset
row OK
end
-- run
SELECT CAST(foto AS VARCHAR(10)) FROM adjuntos
-- expect
error 529
-- run
SELECT CONVERT(NVARCHAR(10), foto) FROM adjuntos
-- expect
error 529
