-- SOUNDEX answers SQL Server's four-character code (the first letter, then the digits of the
-- consonants; vowels, H, W and Y left out, letters of one digit side by side or across H or W
-- written once, the code ending at the first character that is no letter, zeros to four) and
-- DIFFERENCE how much two codes match, from 0 to 4.
-- run
SELECT SOUNDEX('Smith'), SOUNDEX('Smythe'), SOUNDEX('Green'), SOUNDEX('Blotchet-Halls'), SOUNDEX('Ashcraft'), SOUNDEX('Tymczak'), SOUNDEX('Lee'), SOUNDEX(NULL)
-- expect
rowset
row S530|S530|G650|B432|A261|T522|L000|NULL
end
-- run
SELECT DIFFERENCE('Green', 'Greene'), DIFFERENCE('Blotchet-Halls', 'Greene'), DIFFERENCE('Smithers', 'Smythers'), DIFFERENCE('Anothers', 'Brothers'), DIFFERENCE(NULL, 'a')
-- expect
rowset
row 4|0|4|2|NULL
end
-- run
CREATE TABLE fonetica (id INT, apellido VARCHAR(20))
INSERT INTO fonetica VALUES (1, 'Smith')
INSERT INTO fonetica VALUES (2, 'Smyth')
INSERT INTO fonetica VALUES (3, 'Jones')
-- run
SELECT id, SOUNDEX(apellido) FROM fonetica WHERE DIFFERENCE(apellido, 'Smithe') = 4 ORDER BY id
-- expect
rowset
row 1|S530
row 2|S530
end
