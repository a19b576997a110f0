-- TOP (@n) takes its count from a variable.
-- run
CREATE TABLE t (id INT)
-- run
INSERT INTO t VALUES (1) INSERT INTO t VALUES (2) INSERT INTO t VALUES (3)
-- run
DECLARE @n INT = 2 SELECT TOP (@n) id FROM t ORDER BY id DESC
-- expect
rowset
row 3
row 2
end
