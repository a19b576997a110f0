-- A searched CASE in a select list.
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
SELECT id, CASE WHEN n = 0 THEN 'cero' WHEN n < 6 THEN 'poco' ELSE 'mucho' END FROM t WHERE id < 4 ORDER BY id
-- expect
rowset
row 1|cero
row 2|poco
row 3|mucho
end
