-- Dropping a database that does not exist is error 3701.
-- run
DROP DATABASE no_existe
-- expect
error 3701
