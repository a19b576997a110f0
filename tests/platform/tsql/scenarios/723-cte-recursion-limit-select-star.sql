-- A recursive common table expression whose first query selects * (or t.*) from one table
-- stops at its recursion limit as any other: error 530 past OPTION (MAXRECURSION n) or the
-- default 100, all its rows within it.
-- run
CREATE TABLE empleados (id INT, jefe INT NULL, nombre VARCHAR(20))
-- run
INSERT INTO empleados VALUES (1, NULL, 'Ana')
INSERT INTO empleados VALUES (2, 1, 'Luis')
INSERT INTO empleados VALUES (3, 2, 'Marta')
-- run
WITH cadena AS (SELECT * FROM empleados WHERE jefe IS NULL UNION ALL SELECT e.* FROM empleados e JOIN cadena c ON e.jefe = c.id)
SELECT id, nombre FROM cadena ORDER BY id OPTION (MAXRECURSION 2)
-- expect
rowset
row 1|Ana
row 2|Luis
row 3|Marta
end
-- run
WITH cadena AS (SELECT * FROM empleados WHERE jefe IS NULL UNION ALL SELECT e.* FROM empleados e JOIN cadena c ON e.jefe = c.id)
SELECT COUNT(*) FROM cadena OPTION (MAXRECURSION 1)
-- expect
error 530
-- run
WITH bucle AS (SELECT x.* FROM empleados AS x WHERE x.id = 1 UNION ALL SELECT b.id, b.jefe, b.nombre FROM bucle b)
SELECT COUNT(*) FROM bucle
-- expect
error 530
-- run
WITH bucle AS (SELECT * FROM empleados WHERE id = 1 UNION ALL SELECT id + 1, jefe, nombre FROM bucle WHERE id < 50)
SELECT COUNT(*), MAX(id) FROM bucle
-- expect
rowset
row 50|50
end
