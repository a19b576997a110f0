-- NULL dates come first in an ascending order.
-- run
CREATE TABLE t (id INT, d DATETIME)
-- run
INSERT INTO t VALUES (1, '20240101')
-- run
INSERT INTO t VALUES (2, NULL)
-- run
SELECT id FROM t ORDER BY d
-- expect
rowset
row 2
row 1
end
