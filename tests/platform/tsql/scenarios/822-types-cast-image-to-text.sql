-- An IMAGE value converts only to a binary type: cast to a text type it is error 529, and its
-- text is read through VARBINARY(MAX).
-- gap postgres: an IMAGE column is a bytea, which the layer cannot tell from VARBINARY(MAX): CAST(foto AS VARCHAR(10)) answers the text of its bytes, not error 529
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
