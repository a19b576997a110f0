-- A text answered by a subquery compares under the database collation (case and accents ignored).
-- run
CREATE TABLE t (id INT, nombre VARCHAR(20))
-- run
INSERT INTO t VALUES (1, 'José')
-- run
SELECT CASE WHEN (SELECT nombre FROM t WHERE id = 1) = 'JOSE' THEN 1 ELSE 0 END
-- expect
rowset
row 1
end
