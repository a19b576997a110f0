-- MONEY divided keeps four decimal places, the rest dropped (2 / 3 is 0.6666), and a division
-- by zero is still error 8134.
-- run
SELECT CAST(2 AS MONEY) / 3, CAST(10.5 AS MONEY) / 4 * 2
-- expect
rowset
row 0.6666|5.25
end
-- run
SELECT CAST(1 AS MONEY) / 0
-- expect
error 8134
