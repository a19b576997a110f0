-- Integer addition past the INT range is error 8115.
-- run
SELECT 2147483647 + 1
-- expect
error 8115
