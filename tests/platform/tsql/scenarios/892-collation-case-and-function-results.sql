-- The text CASE, IIF, NULLIF, COALESCE and ISNULL answer, and a text function's result, compare
-- under the database collation Modern_Spanish_CI_AI as a column does: case, accents and
-- trailing blanks ignored, in SELECT, WHERE, IN lists, ORDER BY and GROUP BY, also when their
-- values are literals that no column gives a collation.
-- run
CREATE TABLE gente (id INT, nombre VARCHAR(20), ciudad VARCHAR(20))
INSERT INTO gente VALUES (1, 'ana', 'León')
INSERT INTO gente VALUES (2, 'Ana ', 'leon')
INSERT INTO gente VALUES (3, 'Bea', 'Ávila')
INSERT INTO gente VALUES (4, 'bea', NULL)
INSERT INTO gente VALUES (5, 'Carla', 'avila ')
-- run
SELECT CASE WHEN CASE WHEN 1 = 1 THEN 'c' END = 'C' THEN 1 ELSE 0 END, CASE WHEN IIF(1 = 1, 'é', 'x') = 'E ' THEN 1 ELSE 0 END, CASE WHEN COALESCE(NULL, 'ñu') = 'ÑU' THEN 1 ELSE 0 END, CASE WHEN ISNULL(NULL, 'c') <> 'C' THEN 1 ELSE 0 END, CASE WHEN NULLIF('c', 'x') = 'C' THEN 1 ELSE 0 END, CASE WHEN LEFT('Ábaco', 1) = 'a' THEN 1 ELSE 0 END, CASE WHEN 'C' = LOWER('C') THEN 1 ELSE 0 END
-- expect
rowset
row 1|1|1|0|1|1|1
end
-- run
SELECT id FROM gente WHERE CASE WHEN id < 3 THEN nombre ELSE 'x' END = 'ANA' ORDER BY id
-- expect
rowset
row 1
row 2
end
-- run
SELECT id FROM gente WHERE COALESCE(ciudad, 'AVILA') = 'ávila' ORDER BY id
-- expect
rowset
row 3
row 4
row 5
end
-- run
SELECT id FROM gente WHERE IIF(id % 2 = 0, 'par', 'impar') = 'PAR' ORDER BY id
-- expect
rowset
row 2
row 4
end
-- run
SELECT id FROM gente WHERE ISNULL(NULLIF(ciudad, 'LEON'), 'ninguna') = 'NINGUNA' ORDER BY id
-- expect
rowset
row 1
row 2
row 4
end
-- run
SELECT id FROM gente WHERE CASE WHEN id = 3 THEN 'Sí' END IN ('si', 'no')
-- expect
rowset
row 3
end
-- run
SELECT id FROM gente ORDER BY CASE WHEN id = 1 THEN 'b' WHEN id = 2 THEN 'C' ELSE 'a' END, id
-- expect
rowset
row 3
row 4
row 5
row 1
row 2
end
-- run
SELECT id FROM gente ORDER BY COALESCE(ciudad, 'ZZZ'), id
-- expect
rowset
row 3
row 5
row 1
row 2
row 4
end
-- run
SELECT COUNT(*) FROM gente GROUP BY CASE WHEN id < 3 THEN 'Grupo' ELSE 'grupo ' END
-- expect
rowset
row 5
end
-- run
SELECT COUNT(*) FROM gente GROUP BY IIF(id = 1, 'Sí', 'si')
-- expect
rowset
row 5
end
