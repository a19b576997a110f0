-- A literal with trailing blanks finds the stored text without them.
-- run
CREATE TABLE personas (Nombre VARCHAR(30))
-- run
INSERT INTO personas VALUES ('Ana')
-- run
SELECT COUNT(*) FROM personas WHERE Nombre = 'ana   '
-- expect
rowset
row 1
end
