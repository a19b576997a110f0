-- DATE values compare with date texts and with DATETIME values as days (a DATETIME equals a
-- DATE only at midnight), and sort, group and take DISTINCT by the day.
-- run
CREATE TABLE Citas (id INT, dia DATE)
CREATE TABLE Pagos (id INT, fecha DATETIME)
-- run
INSERT INTO Citas VALUES (1, '15/03/2024 09:00')
INSERT INTO Citas VALUES (2, '15/03/2024 18:00')
INSERT INTO Citas VALUES (3, '14/03/2024')
INSERT INTO Citas VALUES (4, NULL)
INSERT INTO Pagos VALUES (1, '15/03/2024')
INSERT INTO Pagos VALUES (2, '15/03/2024 10:00')
-- run
SELECT COUNT(*) FROM Citas WHERE dia = '15/03/2024'
-- expect
rowset
row 2
end
-- run
SELECT COUNT(*) FROM Citas WHERE dia BETWEEN '14/03/2024' AND '20240315'
-- expect
rowset
row 3
end
-- run
SELECT c.id, p.id FROM Citas c JOIN Pagos p ON p.fecha = c.dia ORDER BY c.id
-- expect
rowset
row 1|1
row 2|1
end
-- run
SELECT dia, COUNT(*) FROM Citas GROUP BY dia ORDER BY dia
-- expect
rowset
row NULL|1
row 2024-03-14 00:00:00|1
row 2024-03-15 00:00:00|2
end
-- run
SELECT COUNT(DISTINCT dia) FROM Citas
-- expect
rowset
row 2
end
-- run
SELECT DISTINCT dia FROM Citas WHERE dia IS NOT NULL ORDER BY dia DESC
-- expect
rowset
row 2024-03-15 00:00:00
row 2024-03-14 00:00:00
end
