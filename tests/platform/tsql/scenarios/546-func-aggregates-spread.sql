-- STDEV, STDEVP, VAR and VARP: floats, NULL for the sample figures of a single value, DISTINCT
-- counting each value once, NULLs left out.
-- run
CREATE TABLE s (g INT, v INT)
-- run
INSERT INTO s VALUES (1, 2)
INSERT INTO s VALUES (1, 4)
INSERT INTO s VALUES (1, 4)
INSERT INTO s VALUES (1, 4)
INSERT INTO s VALUES (1, 5)
INSERT INTO s VALUES (1, 5)
INSERT INTO s VALUES (1, 7)
INSERT INTO s VALUES (1, 9)
INSERT INTO s VALUES (1, NULL)
INSERT INTO s VALUES (2, 10)
-- run
SELECT g, CAST(STDEV(v) AS DECIMAL(10, 6)), STDEVP(v), CAST(VAR(v) AS DECIMAL(10, 6)), VARP(v), CAST(VAR(DISTINCT v) AS DECIMAL(10, 6)) FROM s GROUP BY g ORDER BY g
-- expect
rowset
row 1|2.13809|2|4.571429|4|7.3
row 2|NULL|0|NULL|0|NULL
end
-- run
SELECT STDEV(v) FROM s WHERE g = 3
-- expect
rowset
row NULL
end
