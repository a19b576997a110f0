-- A #temporary table of the connection cannot be made twice.
-- run
CREATE TABLE #dos (n INT)
-- run
CREATE TABLE #dos (n INT)
-- expect
error 2714
-- run
DROP TABLE #dos
