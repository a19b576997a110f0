-- An UPDATE that divides by zero is error 8134 and changes nothing.
-- run
CREATE TABLE t (a INT, b INT)
-- run
INSERT INTO t VALUES (10, 0)
-- run
UPDATE t SET a = a / b
-- expect
error 8134
-- run
SELECT a FROM t
-- expect
rowset
row 10
end
