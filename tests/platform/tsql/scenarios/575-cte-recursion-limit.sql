-- A common table expression that reads itself stops at 100 levels (error 530), or at the
-- statement's OPTION (MAXRECURSION n); MAXRECURSION 0 lifts the limit, and a recursion that
-- ends within the limit answers all its rows, through an alias of itself too.
-- run
WITH numeros (n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM numeros WHERE n < 101)
SELECT COUNT(*), MAX(n) FROM numeros
-- expect
rowset
row 101|101
end
-- run
WITH numeros (n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM numeros WHERE n < 102)
SELECT COUNT(*) FROM numeros
-- expect
error 530
-- run
WITH numeros AS (SELECT 1 AS n UNION ALL SELECT x.n + 1 FROM numeros x WHERE x.n < 500)
SELECT COUNT(*), MAX(n) FROM numeros OPTION (MAXRECURSION 0)
-- expect
rowset
row 500|500
end
-- run
WITH numeros AS (SELECT 1 AS n UNION ALL SELECT n + 1 FROM numeros WHERE n < 10)
SELECT n FROM numeros WHERE n > 8 ORDER BY n OPTION (MAXRECURSION 5)
-- expect
error 530
-- run
CREATE TABLE empleados (id INT, jefe INT NULL, nombre VARCHAR(20))
-- run
INSERT INTO empleados VALUES (1, NULL, 'Ana')
INSERT INTO empleados VALUES (2, 1, 'Luis')
INSERT INTO empleados VALUES (3, 2, 'Marta')
-- run
WITH cadena (id, nombre, nivel) AS (
  SELECT id, nombre, 0 FROM empleados WHERE jefe IS NULL
  UNION ALL
  SELECT e.id, e.nombre, c.nivel + 1 FROM empleados e INNER JOIN cadena c ON e.jefe = c.id)
SELECT nombre, nivel FROM cadena ORDER BY nivel OPTION (MAXRECURSION 2)
-- expect
rowset
row Ana|0
row Luis|1
row Marta|2
end
-- run
WITH cadena (id, nombre, nivel) AS (
  SELECT id, nombre, 0 FROM empleados WHERE jefe IS NULL
  UNION ALL
  SELECT e.id, e.nombre, cadena.nivel + 1 FROM empleados e JOIN cadena ON e.jefe = cadena.id)
SELECT COUNT(*) FROM cadena OPTION (MAXRECURSION 1)
-- expect
error 530
