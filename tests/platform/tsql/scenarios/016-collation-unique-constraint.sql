-- A UNIQUE constraint refuses a text equal under the collation (2627).
-- gap sqlite: INSERT INTO claves VALUES ('CAMION') answers error 2601, not error 2627
-- gap postgres: INSERT INTO claves VALUES ('CAMION') answers error 2601, not error 2627
-- run
CREATE TABLE claves (c VARCHAR(10) NOT NULL, CONSTRAINT uq_claves UNIQUE (c))
-- run
INSERT INTO claves VALUES ('camión')
-- expect
count 1
-- run
INSERT INTO claves VALUES ('CAMION')
-- expect
error 2627
