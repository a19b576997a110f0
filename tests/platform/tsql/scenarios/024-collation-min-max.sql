-- MIN and MAX follow the Spanish order (n < ñ < o).
-- run
CREATE TABLE palabras (p VARCHAR(20))
-- run
INSERT INTO palabras VALUES ('ñu')
-- run
INSERT INTO palabras VALUES ('nz')
-- run
INSERT INTO palabras VALUES ('o')
-- run
SELECT MIN(p), MAX(p) FROM palabras
-- expect
rowset
row nz|o
end
