-- A variable that was not declared is error 137, and nothing of the batch runs.
-- run
CREATE TABLE t (n INT)
-- run
INSERT INTO t VALUES (1) SELECT @nada
-- expect
error 137
-- run
SELECT COUNT(*) FROM t
-- expect
rowset
row 0
end
