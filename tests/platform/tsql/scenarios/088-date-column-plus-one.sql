-- A DATETIME column plus 1 is the next day and stays a date.
-- run
CREATE TABLE t (d DATETIME)
-- run
INSERT INTO t VALUES ('28/02/2024')
-- run
SELECT d + 1, d + 2 FROM t
-- expect
rowset
row 2024-02-29 00:00:00|2024-03-01 00:00:00
end
