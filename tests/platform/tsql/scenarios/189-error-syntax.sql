-- A statement that does not parse is error 102.
-- run
SELECT * FROM WHERE
-- expect
error 102
