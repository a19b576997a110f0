-- ISDATE of a column or an expression reads its text as a date under DATEFORMAT dmy: the
-- separators, a time after the date or alone, ISO 8601 with its T, the days of each month and
-- the years from 1753 on.
-- run
CREATE TABLE t (id INT, s VARCHAR(30))
-- run
INSERT INTO t VALUES (1, '28.02.2024')
INSERT INTO t VALUES (2, '31.02.2024')
INSERT INTO t VALUES (3, 'hola')
INSERT INTO t VALUES (4, '29-02-2024 10:30')
INSERT INTO t VALUES (5, NULL)
INSERT INTO t VALUES (6, '13.25.2024')
INSERT INTO t VALUES (7, '2024-02-28T25:00')
INSERT INTO t VALUES (8, '01.01.1700')
INSERT INTO t VALUES (9, '2024-02-28T10:30:15')
INSERT INTO t VALUES (10, '29.02.2023')
INSERT INTO t VALUES (11, '10:30')
INSERT INTO t VALUES (12, '28.02.2024 9:61')
-- run
SELECT id, ISDATE(s) FROM t ORDER BY id
-- expect
rowset
row 1|1
row 2|0
row 3|0
row 4|1
row 5|0
row 6|0
row 7|0
row 8|0
row 9|1
row 10|0
row 11|1
row 12|0
end
-- run
SELECT COUNT(*) FROM t WHERE ISDATE(s) = 1
-- expect
rowset
row 4
end
-- run
DECLARE @s VARCHAR(20)
SET @s = '30.04.2024'
SELECT ISDATE(@s), ISDATE(@s + 'x')
-- expect
rowset
row 1|0
end
