-- POWER of a negative number to a fraction has no real result: error 3623 on both engines (SQLite
-- answered NULL), from a column too; a negative number to a whole power is its power.
-- run
SELECT POWER(-8, 0.5)
-- expect
error 3623
-- run
SELECT POWER(-2, 3), POWER(-2, 2), POWER(-3, 0)
-- expect
rowset
row -8|4|1
end
-- run
CREATE TABLE potencias_neg (id INT, b FLOAT)
INSERT INTO potencias_neg VALUES (1, -4)
-- run
SELECT POWER(b, 0.5) FROM potencias_neg WHERE id = 1
-- expect
error 3623
