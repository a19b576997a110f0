-- IDENTITY without a seed and increment counts from 1 by 1.
-- run
CREATE TABLE t (id INT IDENTITY NOT NULL, n INT)
-- run
INSERT INTO t (n) VALUES (5)
INSERT INTO t (n) VALUES (6)
-- run
SELECT id, n FROM t ORDER BY id
-- expect
rowset
row 1|5
row 2|6
end
