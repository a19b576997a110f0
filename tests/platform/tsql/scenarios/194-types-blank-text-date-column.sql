-- A blank text stored in a DATETIME column is the date numbered 0, 1900-01-01.
-- run
CREATE TABLE t (id INT, d DATETIME)
-- run
INSERT INTO t VALUES (1, '')
-- expect
count 1
-- run
SELECT d, YEAR(d) FROM t
-- expect
rowset
row 1900-01-01 00:00:00|1900
end
