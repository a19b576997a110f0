-- The modern Spanish collation sorts 'll' as two l's.
-- run
CREATE TABLE palabras (p VARCHAR(20))
-- run
INSERT INTO palabras VALUES ('luz')
-- run
INSERT INTO palabras VALUES ('llama')
-- run
INSERT INTO palabras VALUES ('lima')
-- run
SELECT p FROM palabras ORDER BY p
-- expect
rowset
row lima
row llama
row luz
end
