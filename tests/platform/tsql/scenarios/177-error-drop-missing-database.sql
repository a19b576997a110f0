-- Dropping a database that does not exist is error 3701.
-- gap postgres: DROP DATABASE no_existe answers error, not error 3701
-- run
DROP DATABASE no_existe
-- expect
error 3701
