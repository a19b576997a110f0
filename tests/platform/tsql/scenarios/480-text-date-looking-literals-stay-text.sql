-- A text that looks like a date is a text: VARCHAR, CHAR and TEXT columns store it as written
-- (by INSERT, UPDATE, INSERT ... SELECT and through a variable) and compare it as a text; only a
-- date column, or a comparison with a date, reads it as a date.
-- run
CREATE TABLE t (id INT, s VARCHAR(20), c CHAR(10), x TEXT, f DATETIME)
-- run
INSERT INTO t (id, s, c, x, f) VALUES (1, '15/03/2024', '20240315', '15/03/2024 10:30', '15/03/2024')
-- expect
count 1
-- run
SELECT s, c, x, f FROM t
-- expect
rowset
row 15/03/2024|20240315  |15/03/2024 10:30|2024-03-15 00:00:00
end
-- run
UPDATE t SET s = '31/12/2023', f = '31/12/2023' WHERE id = 1
-- expect
count 1
-- run
INSERT INTO t (id, s, f) SELECT 2, '01/02/2024', '01/02/2024'
-- expect
count 1
-- run
DECLARE @s VARCHAR(20) SET @s = '20240105' INSERT INTO t (id, s) VALUES (3, @s) SELECT @s, LEN(@s)
-- expect
count 1
rowset
row 20240105|8
end
-- run
SELECT id, s, f FROM t ORDER BY id
-- expect
rowset
row 1|31/12/2023|2023-12-31 00:00:00
row 2|01/02/2024|2024-02-01 00:00:00
row 3|20240105|NULL
end
-- run
SELECT id FROM t WHERE s > '20240101' ORDER BY id
-- expect
rowset
row 1
row 3
end
-- run
SELECT id FROM t WHERE s IN ('01/02/2024', '20240105') AND f >= '01/01/2024' OR f IN ('31/12/2023') ORDER BY id
-- expect
rowset
row 1
row 2
end
-- run
SELECT '15/03/2024', LEN('20240315'), ISNULL(s, '15/03/2024') FROM t WHERE id = 2
-- expect
rowset
row 15/03/2024|8|01/02/2024
end
