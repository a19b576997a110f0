-- LIKE ... ESCAPE takes a pattern and an escape character from columns or expressions too.
-- run
CREATE TABLE t (id INT, nombre VARCHAR(20), patron VARCHAR(20), marca CHAR(1))
-- run
INSERT INTO t VALUES (1, '50% de rebaja', '50!%%', '!')
INSERT INTO t VALUES (2, '500 de rebaja', '50!%%', '!')
INSERT INTO t VALUES (3, 'tipo_a', 'TIPO#_%', '#')
INSERT INTO t VALUES (4, 'tipoxa', 'TIPO#_%', '#')
-- run
SELECT id FROM t WHERE nombre LIKE patron ESCAPE marca ORDER BY id
-- expect
rowset
row 1
row 3
end
-- run
SELECT id FROM t WHERE nombre NOT LIKE LEFT(patron, 4) + '%' ESCAPE '!' AND id < 3 ORDER BY id
-- expect
rowset
row 2
end
