-- A scalar subquery whose TOP, DISTINCT, GROUP BY or UNION gives several rows is error 512;
-- one that gives a single row answers it.
-- run
CREATE TABLE t (g INT, n INT)
-- run
INSERT INTO t VALUES (1, 10)
INSERT INTO t VALUES (1, 20)
INSERT INTO t VALUES (2, 30)
-- run
SELECT (SELECT TOP 2 n FROM t ORDER BY n)
-- expect
error 512
-- run
SELECT (SELECT DISTINCT g FROM t)
-- expect
error 512
-- run
SELECT (SELECT sum(n) AS total FROM t GROUP BY g)
-- expect
error 512
-- run
SELECT (SELECT n FROM t WHERE n = 10 UNION SELECT n FROM t WHERE n = 20)
-- expect
error 512
-- run
SELECT (SELECT TOP 2 n FROM t WHERE g = 2 ORDER BY n) + 1, (SELECT DISTINCT g FROM t WHERE n > 15) * 10
-- expect
error 512
-- run
SELECT (SELECT TOP 2 n FROM t WHERE g = 2 ORDER BY n) + 1, (SELECT DISTINCT g FROM t WHERE n < 25) * 10
-- expect
rowset
row 31|10
end
-- run
SELECT (SELECT count(*) FROM t GROUP BY g HAVING count(*) > 1), (SELECT TOP 1 n FROM t ORDER BY n DESC)
-- expect
rowset
row 2|30
end
