-- A DATETIME column with DEFAULT GETDATE() takes the current time.
-- run
CREATE TABLE t (id INT, d DATETIME DEFAULT GETDATE())
-- run
INSERT INTO t (id) VALUES (1)
-- expect
count 1
-- run
SELECT CASE WHEN ABS(DATEDIFF(minute, d, GETDATE())) < 5 THEN 1 ELSE 0 END FROM t
-- expect
rowset
row 1
end
