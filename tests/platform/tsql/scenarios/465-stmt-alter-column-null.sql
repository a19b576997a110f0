-- ALTER COLUMN c type NULL lets a NOT NULL column take NULL; NOT NULL refuses a column holding
-- NULL (515) and, once none is left, makes the column refuse NULL again.
-- run
CREATE TABLE t (id INT NOT NULL, c VARCHAR(5) NOT NULL)
-- run
INSERT INTO t VALUES (1, 'abc')
-- run
ALTER TABLE t ALTER COLUMN c VARCHAR(10) NULL
-- run
INSERT INTO t VALUES (2, NULL)
INSERT INTO t VALUES (3, 'abcdefghij')
-- run
ALTER TABLE t ALTER COLUMN c VARCHAR(10) NOT NULL
-- expect
error 515
-- run
DELETE FROM t WHERE c IS NULL
-- run
ALTER TABLE t ALTER COLUMN c VARCHAR(10) NOT NULL
-- run
INSERT INTO t VALUES (4, NULL)
-- expect
error 515
-- run
SELECT id, c FROM t ORDER BY id
-- expect
rowset
row 1|abc
row 3|abcdefghij
end
