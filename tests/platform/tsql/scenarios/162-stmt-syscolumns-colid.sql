-- syscolumns numbers a table's columns in colid.
-- gap sqlite: SELECT colid FROM syscolumns WHERE id = OBJECT_ID('t') AN... answers error 207, not row 2
-- gap postgres: SELECT colid FROM syscolumns WHERE id = OBJECT_ID('t') AN... answers error 207, not row 2
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
SELECT colid FROM syscolumns WHERE id = OBJECT_ID('t') AND name = 'n'
-- expect
rowset
row 2
end
