-- Aggregates over a window (SUM, AVG, COUNT, COUNT_BIG ... OVER) answer as SQL Server: the
-- partition groups texts under the collation, the sum and average of integers are integers and
-- a decimal stays a decimal; the window's value takes part in arithmetic. LEN of a number counts
-- the characters of its text as CAST AS VARCHAR writes it.
-- run
CREATE TABLE ventas (id INT, zona VARCHAR(10), importe INT, precio DECIMAL(10,2))
INSERT INTO ventas VALUES (1, 'norte', 10, 1.50)
INSERT INTO ventas VALUES (2, 'Norte', 20, 2.25)
INSERT INTO ventas VALUES (3, 'sur', 5, NULL)
INSERT INTO ventas VALUES (4, 'SUR ', 7, 4.00)
-- run
SELECT id, SUM(importe) OVER (PARTITION BY zona) AS s, COUNT(*) OVER (PARTITION BY zona) AS c, AVG(importe) OVER () AS a FROM ventas ORDER BY id
-- expect
rowset
row 1|30|2|10
row 2|30|2|10
row 3|12|2|10
row 4|12|2|10
end
-- run
SELECT id, SUM(importe) OVER (ORDER BY id) AS acumulado, SUM(importe) OVER () - importe AS resto, ROW_NUMBER() OVER (PARTITION BY zona ORDER BY id) AS n FROM ventas ORDER BY id
-- expect
rowset
row 1|10|32|1
row 2|30|22|2
row 3|35|37|1
row 4|42|35|2
end
-- run
SELECT id, SUM(precio) OVER (PARTITION BY zona) AS s, MAX(precio) OVER (PARTITION BY zona) * 2 AS doble FROM ventas ORDER BY id
-- expect
rowset
row 1|3.75|4.5
row 2|3.75|4.5
row 3|4|8
row 4|4|8
end
-- run
SELECT COUNT_BIG(*), COUNT_BIG(DISTINCT zona), COUNT_BIG(precio), MAX(COUNT_BIG(*)) OVER () FROM ventas
-- expect
rowset
row 4|2|3|4
end
-- run
SELECT LEN(12.50), LEN(123), LEN(-5), LEN(CAST(1.5 AS FLOAT)), LEN(precio), LEN(importe * 100) FROM ventas WHERE id = 1
-- expect
rowset
row 5|3|2|3|4|4
end
