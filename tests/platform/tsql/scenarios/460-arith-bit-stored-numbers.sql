-- What INSERT and UPDATE store in a BIT column is 1 for any number but 0 and for TRUE, so that
-- the column compared with 1 finds each of them.
-- run
CREATE TABLE t (id INT, b BIT)
-- run
INSERT INTO t VALUES (1, 5)
INSERT INTO t VALUES (2, -1)
INSERT INTO t VALUES (3, 'true')
INSERT INTO t VALUES (4, 0)
INSERT INTO t VALUES (5, NULL)
UPDATE t SET b = 7 WHERE id = 4
-- run
SELECT id, b FROM t ORDER BY id
-- expect
rowset
row 1|True
row 2|True
row 3|True
row 4|True
row 5|NULL
end
-- run
SELECT COUNT(*) FROM t WHERE b = 1
-- expect
rowset
row 4
end
