-- A variable's arithmetic is of its declared type, whatever its value: a BIGINT that holds a
-- number within INT's range adds and multiplies as a BIGINT (an INT alone would be error 8115),
-- SMALLINT and TINYINT variables compute in their own type (8115 past it, as their columns do)
-- and widen beside an INT; an INT variable still overflows as an INT. A SMALLINT variable added
-- to a date still counts days, and typed variables store and compare as their values.
-- run
CREATE TABLE t (id INT, n INT, s SMALLINT)
-- run
INSERT INTO t VALUES (1, 2000000000, 20000)
-- run
DECLARE @b BIGINT = 2000000000
SELECT @b + @b, @b * 3, 3 * @b - 1, -@b - @b
-- expect
rowset
row 4000000000|6000000000|5999999999|-4000000000
end
-- run
DECLARE @b BIGINT = 2000000000
SELECT n + @b, @b + n FROM t WHERE n = @b
-- expect
rowset
row 4000000000|4000000000
end
-- run
DECLARE @i INT = 2000000000
SELECT @i + @i
-- expect
error 8115
-- run
DECLARE @s SMALLINT = 30000
SELECT @s + @s
-- expect
error 8115
-- run
DECLARE @s SMALLINT = 30000
SELECT @s + 10000, s + @s FROM t
-- expect
error 8115
-- run
DECLARE @s SMALLINT = 30000, @u TINYINT = 200
SELECT @s + 10000, @u + 100, @u * @u / @u
-- expect
error 8115
-- run
DECLARE @s SMALLINT = 30000, @u TINYINT = 200
SELECT @s + 10000, @u + 100, @s - @u
-- expect
rowset
row 40000|300|29800
end
-- run
DECLARE @d SMALLINT = 3
SELECT CAST('20240315' AS DATETIME) + @d, CAST('20240315' AS DATETIME) - @d
-- expect
rowset
row 2024-03-18 00:00:00|2024-03-12 00:00:00
end
-- run
DECLARE @s SMALLINT = 12000, @b BIGINT = 7
INSERT INTO t VALUES (@b, @b, @s)
SELECT id, n, s + @s FROM t WHERE id = @b
-- expect
count 1
rowset
row 7|7|24000
end
