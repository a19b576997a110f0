-- An unknown function is error 195.
-- gap sqlite: SELECT NO_EXISTE(1) answers error, not error 195
-- gap postgres: SELECT NO_EXISTE(1) answers error, not error 195
-- run
SELECT NO_EXISTE(1)
-- expect
error 195
