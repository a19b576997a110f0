-- UPDATE ... SET c = '' stores 0 in a number column and 1900-01-01 in a date column.
-- run
CREATE TABLE t (id INT, n INT, f FLOAT, d DATETIME)
-- run
INSERT INTO t VALUES (1, 5, 2.5, '15/03/2024')
-- run
UPDATE t SET n = '', f = '' WHERE id = 1
-- expect
count 1
-- run
SELECT n, CASE WHEN f = 0 THEN 'cero' ELSE 'otro' END FROM t
-- expect
rowset
row 0|cero
end
-- run
UPDATE t SET d = ''
-- expect
count 1
-- run
SELECT d FROM t
-- expect
rowset
row 1900-01-01 00:00:00
end
