-- NULLs come first in an ascending order.
-- run
CREATE TABLE v (id INT, x INT)
-- run
INSERT INTO v VALUES (1, 2)
-- run
INSERT INTO v VALUES (2, NULL)
-- run
INSERT INTO v VALUES (3, 1)
-- run
SELECT x FROM v ORDER BY x
-- expect
rowset
row NULL
row 1
row 2
end
