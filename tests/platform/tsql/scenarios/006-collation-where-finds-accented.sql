-- A WHERE on a text column finds the row whatever the case and accents of the literal.
-- run
CREATE TABLE personas (Nombre VARCHAR(30))
-- run
INSERT INTO personas VALUES ('José')
-- run
INSERT INTO personas VALUES ('María')
-- run
SELECT Nombre FROM personas WHERE Nombre = 'JOSE'
-- expect
rowset
row José
end
