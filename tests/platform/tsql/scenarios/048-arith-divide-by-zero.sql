-- Dividing an integer by zero is error 8134.
-- run
SELECT 1 / 0
-- expect
error 8134
