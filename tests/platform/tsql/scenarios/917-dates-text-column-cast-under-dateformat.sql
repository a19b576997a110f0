-- A text column cast or converted to DATETIME is read as a date literal is, under SET DATEFORMAT:
-- dmy reads '15/03/2024' as the 15th of March, a time after it too (with ':' before the
-- milliseconds), a year written first is year, day, month for DATETIME, a blank text is
-- 1900-01-01, an impossible day is 242 and a word 241.
-- run
CREATE TABLE importados (id INT, fecha VARCHAR(30))
INSERT INTO importados VALUES (1, '15/03/2024 10:20')
INSERT INTO importados VALUES (2, '01.02.2024')
INSERT INTO importados VALUES (3, '20240229')
INSERT INTO importados VALUES (4, '2024-15-03 10:20:30:500')
INSERT INTO importados VALUES (5, '')
-- run
SELECT id, CONVERT(VARCHAR(23), CAST(fecha AS DATETIME), 121), ISDATE(fecha) FROM importados ORDER BY id
-- expect
rowset
row 1|2024-03-15 10:20:00.000|1
row 2|2024-02-01 00:00:00.000|1
row 3|2024-02-29 00:00:00.000|1
row 4|2024-03-15 10:20:30.500|1
row 5|1900-01-01 00:00:00.000|0
end
-- run
SELECT COUNT(*) FROM importados WHERE CONVERT(DATETIME, fecha) >= '01/03/2024'
-- expect
rowset
row 2
end
-- run
INSERT INTO importados VALUES (6, '31/02/2024')
SELECT CAST(fecha AS DATETIME) FROM importados WHERE id = 6
-- expect
error 242
-- run
UPDATE importados SET fecha = 'mañana' WHERE id = 6
SELECT CAST(fecha AS DATETIME) FROM importados WHERE id = 6
-- expect
error 241
