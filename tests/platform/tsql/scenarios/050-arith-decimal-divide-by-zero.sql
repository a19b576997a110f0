-- Dividing a decimal by zero is error 8134.
-- run
SELECT 1.5 / 0
-- expect
error 8134
