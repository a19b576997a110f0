-- POWER answers its first argument's type: an integer's power is an integer, a decimal's keeps
-- the decimal's scale (POWER(2.0, -100.0) is 0.0, POWER(2.0, 0.5) is 1.4, rounded).
-- run
SELECT POWER(2, -100.0), POWER(CAST(2.0 AS INT), -100.0), POWER(2.0, -100.0), POWER(2.00, -100.0),
       POWER(CAST(2.0 AS DECIMAL(5,2)), -100.0)
-- expect
rowset
row 0|0|0|0|0
end
-- run
SELECT POWER(2.5, 2), POWER(2.0, 0.5), POWER(CAST(2.5 AS DECIMAL(5,2)), 3), POWER(10.0, 3)
-- expect
rowset
row 6.3|1.4|15.63|1000
end
-- run
CREATE TABLE tasas (tipo DECIMAL(6,3), base FLOAT)
INSERT INTO tasas VALUES (1.025, 2)
-- run
SELECT POWER(tipo, 12), POWER(base, 0.5) * POWER(base, 0.5) FROM tasas
-- expect
rowset
row 1.345|2
end
