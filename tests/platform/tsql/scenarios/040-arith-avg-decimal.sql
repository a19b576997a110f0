-- AVG of a decimal column keeps its fraction.
-- run
CREATE TABLE t (n DECIMAL(10,2))
-- run
INSERT INTO t VALUES (1)
-- run
INSERT INTO t VALUES (2)
-- run
SELECT AVG(n) FROM t
-- expect
rowset
row 1.5
end
