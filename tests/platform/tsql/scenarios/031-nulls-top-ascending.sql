-- TOP 1 of an ascending order is the NULL row.
-- run
CREATE TABLE v (id INT, x INT)
-- run
INSERT INTO v VALUES (1, 2)
-- run
INSERT INTO v VALUES (2, NULL)
-- run
INSERT INTO v VALUES (3, 1)
-- run
SELECT TOP 1 id FROM v ORDER BY x
-- expect
rowset
row 2
end
