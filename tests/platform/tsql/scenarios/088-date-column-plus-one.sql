-- A DATETIME column plus 1 is the next day and stays a date.
-- gap sqlite: SELECT d + 1, d + 2 FROM t answers row 2025|2026, not row 2024-02-29 00:00:00|2024-03-01 00:00:00
-- gap postgres: SELECT d + 1, d + 2 FROM t answers error, not row 2024-02-29 00:00:00|2024-03-01 00:00:00
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
