-- Dropping a table that does not exist is error 3701.
-- gap sqlite: DROP TABLE no_existe answers error 208, not error 3701
-- gap postgres: DROP TABLE no_existe answers error 208, not error 3701
-- run
DROP TABLE no_existe
-- expect
error 3701
