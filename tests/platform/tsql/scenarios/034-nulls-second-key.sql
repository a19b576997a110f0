-- NULLs of a second order key come first within their group.
-- run
CREATE TABLE t (g INT, x INT)
-- run
INSERT INTO t VALUES (1, 5)
-- run
INSERT INTO t VALUES (1, NULL)
-- run
INSERT INTO t VALUES (0, 9)
-- run
SELECT g, x FROM t ORDER BY g DESC, x
-- expect
rowset
row 1|NULL
row 1|5
row 0|9
end
