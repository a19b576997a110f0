-- SELECT ... INTO makes a new table with the query's rows.
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
SELECT id, n INTO copia FROM t WHERE n = 7
-- expect
count 2
-- run
SELECT COUNT(*) FROM copia
-- expect
rowset
row 2
end
