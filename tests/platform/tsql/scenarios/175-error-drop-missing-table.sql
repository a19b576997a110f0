-- Dropping a table that does not exist is error 3701.
-- run
DROP TABLE no_existe
-- expect
error 3701
