-- TOP 1 of a descending order is the highest value.
-- run
CREATE TABLE v (id INT, x INT)
-- run
INSERT INTO v VALUES (1, 2)
-- run
INSERT INTO v VALUES (2, NULL)
-- run
INSERT INTO v VALUES (3, 1)
-- run
SELECT TOP 1 id FROM v ORDER BY x DESC
-- expect
rowset
row 1
end
