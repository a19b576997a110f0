-- Aggregates skip NULLs; COUNT(*) counts their rows.
-- run
CREATE TABLE v (id INT, x INT)
-- run
INSERT INTO v VALUES (1, 2)
-- run
INSERT INTO v VALUES (2, NULL)
-- run
INSERT INTO v VALUES (3, 1)
-- run
SELECT MIN(x), MAX(x), COUNT(x), COUNT(*), SUM(x) FROM v
-- expect
rowset
row 1|2|2|3|3
end
