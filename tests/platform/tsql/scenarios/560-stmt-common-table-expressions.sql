-- A WITH list of common table expressions reads in the SELECT after it: several of them, one
-- reading another, column names in parentheses, one reading itself (UNION ALL), and a batch
-- going on with the next statement. WITH before UPDATE is refused by name.
-- run
CREATE TABLE ventas (id INT, cliente VARCHAR(10), importe INT)
-- run
INSERT INTO ventas VALUES (1, 'ana', 10)
INSERT INTO ventas VALUES (2, 'luis', 5)
INSERT INTO ventas VALUES (3, 'ANA', 7)
-- run
WITH totales (cliente, total) AS (SELECT cliente, SUM(importe) FROM ventas GROUP BY cliente),
     grandes AS (SELECT cliente, total FROM totales WHERE total > 6)
SELECT UPPER(cliente), total FROM grandes ORDER BY total
-- expect
rowset
row ANA|17
end
-- run
WITH serie (n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM serie WHERE n < 150)
SELECT COUNT(*), SUM(n) FROM serie OPTION (MAXRECURSION 200)
-- expect
rowset
row 150|11325
end
-- run
WITH v AS (SELECT id FROM ventas WHERE importe < 10) SELECT COUNT(*) FROM v
SELECT MAX(id) FROM ventas
-- expect
rowset
row 2
end
rowset
row 3
end
-- run
WITH v AS (SELECT id FROM ventas) UPDATE ventas SET importe = 0 WHERE id IN (SELECT id FROM v)
-- expect
error 102
-- run
SELECT SUM(importe) FROM ventas
-- expect
rowset
row 22
end
