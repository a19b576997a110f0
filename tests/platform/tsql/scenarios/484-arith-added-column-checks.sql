-- Columns added by ALTER TABLE ADD hold their type's limits as columns made by CREATE TABLE do:
-- a VARCHAR(n)'s length (8152), TINYINT and SMALLINT ranges (220), INT's (8115).
-- run
CREATE TABLE t (id INT)
-- run
ALTER TABLE t ADD nombre VARCHAR(5) NULL, edad TINYINT NULL, puntos SMALLINT NULL
-- run
ALTER TABLE t ADD total INT NULL
-- run
INSERT INTO t (id, nombre) VALUES (1, 'abcdef')
-- expect
error 8152
-- run
INSERT INTO t (id, edad) VALUES (2, 300)
-- expect
error 220
-- run
INSERT INTO t (id, puntos) VALUES (3, 40000)
-- expect
error 220
-- run
INSERT INTO t (id, total) VALUES (4, 3000000000)
-- expect
error 8115
-- run
INSERT INTO t (id, nombre, edad, puntos, total) VALUES (5, 'abcde', 255, -32768, 2147483647)
-- expect
count 1
-- run
SELECT id, nombre, edad, puntos, total FROM t
-- expect
rowset
row 5|abcde|255|-32768|2147483647
end
