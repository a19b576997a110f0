-- GROUP BY puts texts that differ in case, accents or trailing blanks in one group.
-- run
CREATE TABLE personas (Nombre VARCHAR(30))
-- run
INSERT INTO personas VALUES ('José')
-- run
INSERT INTO personas VALUES ('jose')
-- run
INSERT INTO personas VALUES ('JOSE  ')
-- run
INSERT INTO personas VALUES ('Juan')
-- run
SELECT COUNT(*) FROM (SELECT Nombre FROM personas GROUP BY Nombre) g
-- expect
rowset
row 2
end
