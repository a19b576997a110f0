-- An unknown table is error 208.
-- run
SELECT * FROM no_existe
-- expect
error 208
