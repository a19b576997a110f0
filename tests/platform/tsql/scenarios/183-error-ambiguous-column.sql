-- A column name two joined tables have is error 209.
-- run
CREATE TABLE a (id INT)
-- run
CREATE TABLE b (id INT)
-- run
SELECT id FROM a JOIN b ON a.id = b.id
-- expect
error 209
