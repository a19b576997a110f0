-- A UNIQUE constraint refuses a text equal under the collation (2627).
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
