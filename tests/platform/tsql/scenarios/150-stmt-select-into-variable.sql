-- SELECT @v = ... assigns from a query.
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
DECLARE @m INT SELECT @m = MAX(n) FROM t SELECT @m + 1
-- expect
rowset
row 8
end
