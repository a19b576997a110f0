-- `+ n` adds days to a date column and joins texts of a text column of the same name in
-- another table; a text written as a date compared with the text column stays a text.
-- run
CREATE TABLE Pedidos (Numero INT, Fecha DATETIME)
CREATE TABLE Notas (Numero INT, Fecha VARCHAR(20))
-- run
INSERT INTO Pedidos VALUES (1, '15/03/2024')
INSERT INTO Notas VALUES (1, '15/03/2024')
-- run
SELECT Fecha + 1 FROM Pedidos
-- expect
rowset
row 2024-03-16 00:00:00
end
-- run
SELECT Fecha + '!' FROM Notas
-- expect
rowset
row 15/03/2024!
end
-- run
SELECT n.Fecha + '!', p.Fecha + 1 FROM Notas n JOIN Pedidos p ON p.Numero = n.Numero
-- expect
rowset
row 15/03/2024!|2024-03-16 00:00:00
end
-- run
SELECT COUNT(*) FROM Notas WHERE Fecha = '15/03/2024'
-- expect
rowset
row 1
end
-- run
SELECT COUNT(*) FROM Pedidos WHERE Fecha = '15/03/2024'
-- expect
rowset
row 1
end
