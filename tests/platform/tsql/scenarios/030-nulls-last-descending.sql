-- NULLs come last in a descending order.
-- run
CREATE TABLE v (id INT, x INT)
-- run
INSERT INTO v VALUES (1, 2)
-- run
INSERT INTO v VALUES (2, NULL)
-- run
INSERT INTO v VALUES (3, 1)
-- run
SELECT x FROM v ORDER BY x DESC
-- expect
rowset
row 2
row 1
row NULL
end
