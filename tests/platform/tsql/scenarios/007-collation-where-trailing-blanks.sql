-- A literal with trailing blanks finds the stored text without them.
-- gap postgres: SELECT COUNT(*) FROM personas WHERE Nombre = 'ana   ' answers row 0, not row 1
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
