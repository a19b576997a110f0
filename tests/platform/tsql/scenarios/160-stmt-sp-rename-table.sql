-- sp_rename renames a table.
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
EXEC sp_rename 't', 'numeros'
-- run
SELECT COUNT(*) FROM numeros
-- expect
rowset
row 4
end
