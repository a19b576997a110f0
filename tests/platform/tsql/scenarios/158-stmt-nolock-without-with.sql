-- A table hint without WITH: FROM t (NOLOCK).
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
SELECT COUNT(*) FROM t (NOLOCK)
-- expect
rowset
row 4
end
