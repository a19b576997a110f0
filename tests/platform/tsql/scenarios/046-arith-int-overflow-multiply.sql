-- Integer multiplication past the INT range is error 8115.
-- run
SELECT 100000 * 100000
-- expect
error 8115
