-- '>' skips the texts equal under the collation, as the record cursor's moves need.
-- run
CREATE TABLE personas (Nombre VARCHAR(30))
-- run
INSERT INTO personas VALUES ('Álvarez')
-- run
INSERT INTO personas VALUES ('Bravo')
-- run
INSERT INTO personas VALUES ('alvarez')
-- run
SELECT Nombre FROM personas WHERE Nombre > 'ALVAREZ' ORDER BY Nombre
-- expect
rowset
row Bravo
end
-- run
SELECT COUNT(*) FROM personas WHERE Nombre >= 'alvárez'
-- expect
rowset
row 3
end
