-- A date written as a text in VALUES is stored as a date whatever the columns before it: a BIT
-- value (which the engine may store through a call of its own) does not move the values after
-- it to other columns.
-- run
CREATE TABLE t (id INT, activo BIT, alta DATETIME, nota VARCHAR(10))
-- run
INSERT INTO t VALUES (1, 1, '20240315', 'x')
INSERT INTO t (id, activo, alta, nota) VALUES (2, 'TRUE', '16/03/2024', 'y')
-- run
SELECT id, activo, YEAR(alta), MONTH(alta), DAY(alta), nota FROM t ORDER BY id
-- expect
rowset
row 1|True|2024|3|15|x
row 2|True|2024|3|16|y
end
