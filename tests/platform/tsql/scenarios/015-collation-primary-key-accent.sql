-- A primary key refuses a text that differs only in accents (2627).
-- run
CREATE TABLE claves (c VARCHAR(10) NOT NULL PRIMARY KEY)
-- run
INSERT INTO claves VALUES ('Jose')
-- expect
count 1
-- run
INSERT INTO claves VALUES ('JOSÉ')
-- expect
error 2627
