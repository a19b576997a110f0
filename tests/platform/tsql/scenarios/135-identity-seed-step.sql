-- IDENTITY(seed, step) starts at the seed and grows by the step.
-- run
CREATE TABLE t (id INT IDENTITY(100,10), n INT)
-- run
INSERT INTO t (n) VALUES (1)
-- expect
count 1
-- run
INSERT INTO t (n) VALUES (2)
-- expect
count 1
-- run
SELECT id FROM t ORDER BY id
-- expect
rowset
row 100
row 110
end
