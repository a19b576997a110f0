-- COUNT(DISTINCT) counts texts equal under the collation once.
-- run
CREATE TABLE personas (Nombre VARCHAR(30))
-- run
INSERT INTO personas VALUES ('Álvarez')
-- run
INSERT INTO personas VALUES ('alvarez')
-- run
INSERT INTO personas VALUES ('ALVAREZ ')
-- run
SELECT COUNT(DISTINCT Nombre) FROM personas
-- expect
rowset
row 1
end
