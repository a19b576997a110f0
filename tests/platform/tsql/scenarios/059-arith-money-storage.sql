-- A MONEY column keeps four decimal places.
-- run
CREATE TABLE t (m MONEY)
-- run
INSERT INTO t VALUES (1.23456)
-- run
SELECT m FROM t
-- expect
rowset
row 1.2346
end
