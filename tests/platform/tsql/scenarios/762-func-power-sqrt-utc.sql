-- POWER answers its first argument's type: an integer's power is an integer (POWER(2, -1) is 0,
-- POWER(2, 0.5) is 1), a decimal's a decimal. SQRT of a negative number is error 3623 on both
-- engines. GETUTCDATE() is a date.
-- run
SELECT POWER(2, -1), POWER(2, 10), POWER(2.0, -1), POWER(2, 0.5), POWER(3, 2) * 2, SQRT(16), SQRT(NULL)
-- expect
rowset
row 0|1024|0.5|1|18|4|NULL
end
-- run
CREATE TABLE potencias (id INT, b INT, e INT)
INSERT INTO potencias VALUES (1, 2, -1)
INSERT INTO potencias VALUES (2, 10, 2)
-- run
SELECT id, POWER(b, e), POWER(b, e) / 3 FROM potencias ORDER BY id
-- expect
rowset
row 1|0|0
row 2|100|33
end
-- run
SELECT SQRT(-1)
-- expect
error 3623
-- run
SELECT SQRT(b - 20) FROM potencias WHERE id = 1
-- expect
error 3623
-- run
SELECT DATEDIFF(day, GETUTCDATE(), DATEADD(day, 1, GETUTCDATE())), CASE WHEN ABS(DATEDIFF(hour, GETUTCDATE(), GETDATE())) <= 14 THEN 'sí' END
-- expect
rowset
row 1|sí
end
