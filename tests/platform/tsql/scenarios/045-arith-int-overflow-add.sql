-- Integer addition past the INT range is error 8115.
-- gap sqlite: SELECT 2147483647 + 1 answers row 2147483648, not error 8115
-- run
SELECT 2147483647 + 1
-- expect
error 8115
