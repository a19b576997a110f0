-- ~ of a BIT is the other BIT: SET b = ~b turns 1 into 0, 0 into 1 and leaves NULL.
-- run
CREATE TABLE t (id INT, b BIT)
-- run
INSERT INTO t VALUES (1, 1)
INSERT INTO t VALUES (2, 0)
INSERT INTO t VALUES (3, NULL)
-- run
UPDATE t SET b = ~b
-- expect
count 3
-- run
SELECT id, b FROM t ORDER BY id
-- expect
rowset
row 1|False
row 2|True
row 3|NULL
end
-- run
SELECT id FROM t WHERE ~b = 1 ORDER BY id
-- expect
rowset
row 1
end
