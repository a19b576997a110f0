-- TINYINT with TINYINT computes as TINYINT and SMALLINT with SMALLINT as SMALLINT: a step past the
-- type is error 8115, even when the whole would come back into it; with an INT (a literal) the
-- result is an INT, and storing it back in the column past its range is error 220.
-- run
CREATE TABLE t (id INT, a TINYINT, b TINYINT, s SMALLINT, u SMALLINT)
-- run
INSERT INTO t VALUES (1, 200, 100, 30000, 5000)
INSERT INTO t VALUES (2, 10, 20, -30000, 2)
-- run
SELECT a + b FROM t WHERE id = 1
-- expect
error 8115
-- run
SELECT a - b FROM t WHERE id = 2
-- expect
error 8115
-- run
SELECT (a + b) - b FROM t WHERE id = 1
-- expect
error 8115
-- run
SELECT s + u FROM t WHERE id = 1
-- expect
error 8115
-- run
SELECT s * u FROM t WHERE id = 2
-- expect
error 8115
-- run
UPDATE t SET a = a * b - b * b WHERE id = 2
-- expect
error 8115
-- run
SELECT a + b, b - a + a, s + u, s / u, a * 2 FROM t WHERE id = 2
-- expect
rowset
row 30|20|-29998|-15000|20
end
-- run
SELECT a + 100, s + 10000, SUM(a + 0), SUM(s) FROM t WHERE id = 1 GROUP BY a, s
-- expect
rowset
row 300|40000|200|30000
end
-- run
SELECT SUM(a), SUM(u) * 10 FROM t
-- expect
rowset
row 210|50020
end
-- run
UPDATE t SET a = a + 100 WHERE id = 1
-- expect
error 220
