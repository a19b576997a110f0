-- A unique index refuses a text that differs only in case and trailing blanks (2601).
-- run
CREATE TABLE codigos (c VARCHAR(10))
-- run
CREATE UNIQUE INDEX ix_codigos ON codigos (c)
-- run
INSERT INTO codigos VALUES ('abc')
-- expect
count 1
-- run
INSERT INTO codigos VALUES ('ABC  ')
-- expect
error 2601
