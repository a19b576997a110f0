-- Dates sort by time, not as texts.
-- run
CREATE TABLE t (d DATETIME)
-- run
INSERT INTO t VALUES ('02/01/2024')
-- run
INSERT INTO t VALUES ('10/12/2023')
-- run
INSERT INTO t VALUES ('01/02/2024')
-- run
SELECT CONVERT(VARCHAR(10), d, 103) FROM t ORDER BY d
-- expect
rowset
row 10/12/2023
row 02/01/2024
row 01/02/2024
end
