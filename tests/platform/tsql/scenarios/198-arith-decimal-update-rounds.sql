-- What an INSERT or UPDATE stores in a DECIMAL(p,s) column, an expression or a text, is
-- rounded half away from zero to its scale; a value beyond its precision is error 8115.
-- run
CREATE TABLE t (id INT, n DECIMAL(6,2))
-- run
INSERT INTO t VALUES (1, 10.5)
-- run
INSERT INTO t VALUES (2, -1.235)
-- run
INSERT INTO t (n, id) VALUES ('12.345', 3)
-- run
UPDATE t SET n = n * 1.001 WHERE id = 1
-- expect
count 1
-- run
SELECT COUNT(*) FROM t WHERE (id = 1 AND n = 10.51) OR (id = 2 AND n = -1.24) OR (id = 3 AND n = 12.35)
-- expect
rowset
row 3
end
-- run
UPDATE t SET n = 12345.6 WHERE id = 1
-- expect
error 8115
-- run
SELECT COUNT(*) FROM t WHERE n = 10.51
-- expect
rowset
row 1
end
