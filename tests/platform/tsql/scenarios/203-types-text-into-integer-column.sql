-- A text stored in an integer column must read as an integer: ' 7 ' is 7, '8.0' and 'doce'
-- are error 245 and store nothing.
-- run
CREATE TABLE t (id INT, n SMALLINT)
-- run
INSERT INTO t VALUES (1, ' 7 ')
-- expect
count 1
-- run
UPDATE t SET n = '8.0' WHERE id = 1
-- expect
error 245
-- run
INSERT INTO t (n, id) VALUES ('doce', 2)
-- expect
error 245
-- run
SELECT id, n FROM t
-- expect
rowset
row 1|7
end
