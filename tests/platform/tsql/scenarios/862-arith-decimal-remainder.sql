-- The remainder (%) of decimals is a decimal, with the dividend's sign, computed exactly (0.3 %
-- 0.1 is 0.0); of integers an integer; by zero error 8134. MONEY beside a DECIMAL computes as a
-- DECIMAL(19,4) (12.25125, where SQLite would answer 12.251249999999999).
-- run
SELECT 7.5 % 2, -7.5 % 2, 0.3 % 0.1, 10 % 3, -10 % 3, CAST(7.25 AS DECIMAL(5,2)) % 1
-- expect
rowset
row 1.5|-1.5|0|1|-1|0.25
end
-- run
CREATE TABLE restos (d DECIMAL(6,2), n INT)
INSERT INTO restos VALUES (7.50, 2)
INSERT INTO restos VALUES (-3.30, 1)
-- run
SELECT d % n, d % 0.5, n % 2 FROM restos ORDER BY d
-- expect
rowset
row -0.3|-0.3|1
row 1.5|0|0
end
-- run
SELECT d % 0 FROM restos
-- expect
error 8134
-- run
SELECT d % (n - n) FROM restos
-- expect
error 8134
-- run
CREATE TABLE saldos (saldo MONEY, corto SMALLMONEY)
INSERT INTO saldos VALUES (10.125, 2.5)
-- run
SELECT saldo * 1.21, corto * 1.5, saldo / 3.0, saldo * 2, saldo / 3 FROM saldos
-- expect
rowset
row 12.25125|3.75|3.375|20.25|3.375
end
