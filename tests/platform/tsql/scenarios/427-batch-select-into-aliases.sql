-- SELECT ... INTO names the new columns by their aliases.
-- run
CREATE TABLE t (id INT, n INT)
-- run
INSERT INTO t VALUES (1, 0) INSERT INTO t VALUES (2, 5) INSERT INTO t VALUES (3, 7) INSERT INTO t VALUES (4, 7)
-- run
SELECT n AS valor, COUNT(*) AS veces INTO resumen FROM t GROUP BY n
-- expect
count 3
-- run
SELECT valor, veces FROM resumen ORDER BY valor
-- expect
rowset
row 0|1
row 5|1
row 7|2
end
