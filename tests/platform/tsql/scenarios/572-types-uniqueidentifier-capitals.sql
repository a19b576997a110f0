-- A uniqueidentifier reads back in capitals whatever the case it was written in, and compares
-- with a text in either case.
-- run
CREATE TABLE documentos (clave UNIQUEIDENTIFIER NOT NULL, nombre VARCHAR(20))
-- run
INSERT INTO documentos VALUES ('6f9619ff-8b86-d011-b42d-00c04fc964ff', 'factura')
-- run
SELECT clave, nombre FROM documentos WHERE clave = '6F9619FF-8B86-D011-B42D-00C04FC964FF'
-- expect
rowset
row 6F9619FF-8B86-D011-B42D-00C04FC964FF|factura
end
-- run
SELECT LEN(CAST(NEWID() AS VARCHAR(36))), COUNT(*) FROM documentos WHERE NEWID() <> clave
-- expect
rowset
row 36|1
end
