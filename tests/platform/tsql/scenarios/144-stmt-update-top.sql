-- UPDATE TOP (n) changes n rows.
-- run
CREATE TABLE t (id INT, n INT)
-- run
INSERT INTO t VALUES (1, 0)
-- run
INSERT INTO t VALUES (2, 5)
-- run
INSERT INTO t VALUES (3, 7)
-- run
INSERT INTO t VALUES (4, 7)
-- run
UPDATE TOP (2) t SET n = 99
-- expect
count 2
-- run
SELECT COUNT(*) FROM t WHERE n = 99
-- expect
rowset
row 2
end
