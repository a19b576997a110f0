-- A statement that does not parse is error 102.
-- gap sqlite: SELECT * FROM WHERE answers error, not error 102
-- gap postgres: SELECT * FROM WHERE answers error, not error 102
-- run
SELECT * FROM WHERE
-- expect
error 102
