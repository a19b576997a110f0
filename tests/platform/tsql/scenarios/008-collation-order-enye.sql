-- ñ sorts between n and o.
-- run
CREATE TABLE palabras (p VARCHAR(20))
-- run
INSERT INTO palabras VALUES ('oso')
-- run
INSERT INTO palabras VALUES ('ñandú')
-- run
INSERT INTO palabras VALUES ('nube')
-- run
INSERT INTO palabras VALUES ('Nadia')
-- run
SELECT p FROM palabras ORDER BY p
-- expect
rowset
row Nadia
row nube
row ñandú
row oso
end
