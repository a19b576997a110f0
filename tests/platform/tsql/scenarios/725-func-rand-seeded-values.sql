-- RAND(seed) answers SQL Server's value for the seed (RAND(0) 0.943597390424144, RAND(1)
-- 0.713591993212924, RAND(100) 0.715436657367485), one value for every row of its statement.
-- run
SELECT ROUND(RAND(0), 12), ROUND(RAND(1), 12), ROUND(RAND(100), 12)
-- expect
rowset
row 0.943597390424|0.713591993213|0.715436657367
end
-- run
CREATE TABLE r (id INT)
-- run
INSERT INTO r VALUES (1)
INSERT INTO r VALUES (2)
-- run
SELECT id, ROUND(RAND(1), 12) FROM r ORDER BY id
-- expect
rowset
row 1|0.713591993213
row 2|0.713591993213
end
