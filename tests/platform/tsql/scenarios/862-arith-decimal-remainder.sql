-- The remainder (%) of decimals is a decimal, with the dividend's sign, computed exactly (0.3 %
-- 0.1 is 0.0); of integers an integer; by zero error 8134.
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
