-- A text met by a DECIMAL, NUMERIC, MONEY, FLOAT or REAL operand is converted to that operand's
-- own type, as SQL Server's data type precedence says: '1.50' = 1.5 holds, a DECIMAL column
-- compares with its own precision and scale ('2.345' is 2.35 against a DECIMAL(10,2)), a literal with its digits (1.5 is DECIMAL(2,1),
-- so '10' does not fit and is error 8115), a word is 8114 for a DECIMAL and for a FLOAT.
-- run
CREATE TABLE medidas (id INT, txt VARCHAR(10), importe DECIMAL(10,2), peso FLOAT, precio MONEY, ratio REAL, cant NUMERIC(6,3))
-- run
INSERT INTO medidas VALUES (1, '1.50', 1.5, 1.5, 1.5, 1.1, 1.5)
INSERT INTO medidas VALUES (2, ' 20 ', 20, 20, 20, 20, 20)
INSERT INTO medidas VALUES (3, '2.345', 2.35, 2.345, 2.345, 2.345, 2.345)
-- run
SELECT id FROM medidas WHERE txt = importe AND txt = peso AND txt = precio AND txt = cant ORDER BY id
-- expect
rowset
row 1
row 2
row 3
end
-- run
SELECT id FROM medidas WHERE txt = 21.0 OR '1.1' = ratio OR txt IN (10.50, 2.345) ORDER BY id
-- expect
rowset
row 1
row 3
end
-- run
SELECT COUNT(CASE WHEN txt BETWEEN 1.0E0 AND 2.5E0 THEN 1 END), COUNT(CASE WHEN importe > '2' THEN 1 END) FROM medidas
-- expect
rowset
row 2|2
end
-- run
DECLARE @limite DECIMAL(5,2)
SET @limite = 2.30
SELECT id FROM medidas WHERE txt > @limite ORDER BY id
-- expect
rowset
row 2
row 3
end
-- run
SELECT CASE WHEN '10' > 9.5E0 THEN 1 ELSE 0 END, CASE WHEN '10' > 9.50 THEN 1 ELSE 0 END
-- expect
error 8115
-- run
SELECT CASE WHEN '10' > 19.5 THEN 1 ELSE 0 END, CASE WHEN '1.55' = 1.6 THEN 1 ELSE 0 END
-- expect
rowset
row 0|1
end
-- run
INSERT INTO medidas VALUES (4, 'mucho', 1, 1, 1, 1, 1)
-- run
SELECT id FROM medidas WHERE txt = importe
-- expect
error 8114
-- run
SELECT id FROM medidas WHERE txt < 1.0E0
-- expect
error 8114
