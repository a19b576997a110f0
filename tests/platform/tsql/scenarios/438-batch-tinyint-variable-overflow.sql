-- A value beyond a TINYINT variable's range is error 220.
-- run
DECLARE @b TINYINT SET @b = 300
-- expect
error 220
