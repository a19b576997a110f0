-- Arithmetic over INT columns is error 8115 as soon as a step leaves the INT range, even when
-- the whole would come back into it, and SUM of an INT column is an INT (8115 past it); BIGINT
-- columns, and a SMALLINT column with an INT, compute as far as their type goes.
-- run
CREATE TABLE t (i INT, s SMALLINT, b BIGINT)
-- run
INSERT INTO t VALUES (2000000000, 30000, 2000000000)
INSERT INTO t VALUES (200000000, 1, 3)
-- run
SELECT i * 3 FROM t WHERE s = 30000
-- expect
error 8115
-- run
SELECT i * 2 / 4 FROM t WHERE s = 30000
-- expect
error 8115
-- run
SELECT (i + i) - i FROM t WHERE s = 30000
-- expect
error 8115
-- run
UPDATE t SET i = i * 2 - 2000000000 WHERE s = 30000
-- expect
error 8115
-- run
SELECT SUM(i) FROM t
-- expect
error 8115
-- run
SELECT b * 3, s * 10000, -i - 147483648 FROM t WHERE s = 30000
-- expect
rowset
row 6000000000|300000000|-2147483648
end
-- run
SELECT i * 10, i + s, SUM(b), SUM(s) / 7 FROM t WHERE s = 1 GROUP BY i, s
-- expect
rowset
row 2000000000|200000001|3|0
end
-- run
SELECT SUM(b), SUM(s) / 7, SUM(i / 10) FROM t
-- expect
rowset
row 2000000003|4285|220000000
end
