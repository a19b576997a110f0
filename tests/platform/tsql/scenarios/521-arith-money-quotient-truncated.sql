-- A MONEY quotient (money by money, money by an integer, an integer by money) keeps four places
-- and drops the rest, where a MONEY product rounds: 1.00 / 18.4172 is 0.0542 (0.054297...),
-- 1 / 3 * 3 is 0.9999 and 18.4172 * 1.1562 is 21.2940 (21.29396...). Columns, variables and
-- literals cast to MONEY divide alike, exactly (0.7 / 0.1 is 7), a negative quotient towards
-- zero.
-- run
DECLARE @d1 MONEY = 18.4172, @d2 MONEY = 1.00
SELECT @d2 / @d1, @d1 * 1.1562, @d1 * CAST(1.1562 AS MONEY), CAST(1 AS MONEY) / 3 * 3
-- expect
rowset
row 0.0542|21.29396664|21.294|0.9999
end
-- run
CREATE TABLE t (id INT, m MONEY, p MONEY, n INT)
-- run
INSERT INTO t VALUES (1, 0.7, 0.1, 3)
INSERT INTO t VALUES (2, -2, 0.3, 2)
INSERT INTO t VALUES (3, 1, 18.4172, 7)
-- run
SELECT id, m / p, m / n, n / p, p / n * n FROM t ORDER BY id
-- expect
rowset
row 1|7|0.2333|30|0.0999
row 2|-6.6666|-1|6.6666|0.3
row 3|0.0542|0.1428|0.38|18.417
end
-- run
UPDATE t SET m = p / 3 WHERE id = 3
SELECT m FROM t WHERE id = 3
-- expect
count 1
rowset
row 6.139
end
-- run
SELECT m / (p - p) FROM t
-- expect
error 8134
