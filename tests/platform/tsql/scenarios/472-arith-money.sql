-- MONEY arithmetic keeps MONEY, four places: money times an integer or a money, money plus
-- money, money divided by an integer or a money, SUM and AVG of a MONEY column and a MONEY
-- variable; a value stored from a division keeps its four places.
-- run
CREATE TABLE t (id INT, m MONEY, p MONEY, n INT)
-- run
INSERT INTO t VALUES (1, 10, 3, 3)
INSERT INTO t VALUES (2, 1.2345, 0.25, 5)
INSERT INTO t VALUES (3, 0.0005, 2, 2)
-- run
SELECT m / n, m / p, m / 4, m * n, n / p FROM t WHERE id = 1
-- expect
rowset
row 3.3333|3.3333|2.5|30|1
end
-- run
SELECT m / n, m * n, m + p, m * p, (m + p) / n FROM t WHERE id = 2
-- expect
rowset
row 0.2469|6.1725|1.4845|0.3086|0.2969
end
-- run
SELECT SUM(m), AVG(m), SUM(m) / 3, SUM(p * n) FROM t
-- expect
rowset
row 11.235|3.745|3.745|14.25
end
-- run
UPDATE t SET m = m / 3 WHERE id = 1
-- run
SELECT m * 3 FROM t WHERE id = 1
-- expect
rowset
row 9.9999
end
-- run
DECLARE @m MONEY
SET @m = 10
SELECT @m / 3, @m * 1.5
-- expect
rowset
row 3.3333|15
end
