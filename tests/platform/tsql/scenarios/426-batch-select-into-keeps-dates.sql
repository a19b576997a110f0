-- SELECT ... INTO keeps a DATETIME column a date: adding 1 gives the next day.
-- run
CREATE TABLE t (id INT, fecha DATETIME)
-- run
INSERT INTO t VALUES (1, '20240229')
-- run
SELECT fecha INTO copia FROM t
-- expect
count 1
-- run
SELECT fecha + 1, DATEADD(month, 1, fecha) FROM copia
-- expect
rowset
row 2024-03-01 00:00:00|2024-03-29 00:00:00
end
