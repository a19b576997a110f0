-- An unknown function is error 195.
-- run
SELECT NO_EXISTE(1)
-- expect
error 195
