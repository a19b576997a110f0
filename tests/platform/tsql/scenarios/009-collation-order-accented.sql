-- An accented letter sorts with its base letter, not after z.
-- run
CREATE TABLE apellidos (a VARCHAR(20))
-- run
INSERT INTO apellidos VALUES ('Bravo')
-- run
INSERT INTO apellidos VALUES ('Ávila')
-- run
INSERT INTO apellidos VALUES ('Azcona')
-- run
INSERT INTO apellidos VALUES ('Alonso')
-- run
SELECT a FROM apellidos ORDER BY a
-- expect
rowset
row Alonso
row Ávila
row Azcona
row Bravo
end
