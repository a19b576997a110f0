-- A DATETIME variable keeps the milliseconds of its value, rounded as DATETIME rounds them (to
-- .000, .003 or .007), whether it is set from a text or from a column.
-- run
DECLARE @d DATETIME SET @d = '15/03/2024 10:20:30.123' SELECT DATEPART(ms, @d), DATEPART(second, @d)
-- expect
rowset
row 123|30
end
-- run
DECLARE @a DATETIME DECLARE @b DATETIME DECLARE @c DATETIME SET @a = '15/03/2024 10:20:30.125' SET @b = '15/03/2024 10:20:30.001' SET @c = '15/03/2024 10:20:30.999' SELECT DATEPART(ms, @a), DATEPART(ms, @b), DATEPART(second, @c), DATEPART(ms, @c)
-- expect
rowset
row 127|0|31|0
end
-- run
CREATE TABLE t (f DATETIME)
-- run
INSERT INTO t VALUES ('15/03/2024 10:20:30.997')
-- expect
count 1
-- run
DECLARE @d DATETIME SELECT @d = f FROM t SELECT DATEPART(ms, @d), DATEDIFF(ms, @d, f) FROM t
-- expect
rowset
row 997|0
end
