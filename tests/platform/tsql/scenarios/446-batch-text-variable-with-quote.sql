-- A text variable holding a quote compares and stores as written.
-- run
CREATE TABLE t (nombre VARCHAR(20))
-- run
DECLARE @s VARCHAR(20) = 'O''Brien' INSERT INTO t VALUES (@s) SELECT COUNT(*) FROM t WHERE nombre = @s
-- expect
count 1
rowset
row 1
end
