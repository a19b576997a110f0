-- COALESCE whose arguments are all the NULL constant is error 4127 when the batch is compiled,
-- so nothing of the batch runs; NULL variables are no NULL constants.
-- run
DECLARE @a INT, @b INT
SELECT COALESCE(@a, @b), COALESCE(NULL, 2), COALESCE(NULL, @a, 3)
-- expect
rowset
row NULL|2|3
end
-- run
SELECT COALESCE(NULL, NULL)
-- expect
error 4127
-- run
CREATE TABLE coalesce_nada (n INT)
DECLARE @x INT
SET @x = COALESCE(NULL, NULL, NULL)
-- expect
error 4127
-- run
CREATE TABLE coalesce_nada (n INT)
IF COALESCE(NULL, NULL) IS NULL PRINT 'nulo'
-- expect
error 4127
-- run
SELECT COUNT(*) FROM sysobjects WHERE name = 'coalesce_nada'
-- expect
rowset
row 0
end
