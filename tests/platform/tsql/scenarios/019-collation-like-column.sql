-- LIKE on a column finds accented and upper-case rows.
-- run
CREATE TABLE personas (Nombre VARCHAR(30))
-- run
INSERT INTO personas VALUES ('JOSÉ LUIS')
-- run
INSERT INTO personas VALUES ('josefa')
-- run
INSERT INTO personas VALUES ('Juan')
-- run
SELECT COUNT(*) FROM personas WHERE Nombre LIKE 'jose%'
-- expect
rowset
row 2
end
