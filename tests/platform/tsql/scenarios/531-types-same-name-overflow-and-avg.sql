-- The type of a column in arithmetic, SUM and AVG is its own table's, whatever other tables
-- hold under the same name: TINYINT with TINYINT stays a TINYINT (8115 past it) where another
-- table's column of that name is MONEY, and AVG of a FLOAT column keeps its fraction where
-- another table's column of that name is an INT.
-- run
CREATE TABLE Lineas (Importe TINYINT, Cantidad INT)
CREATE TABLE Pagos (Importe MONEY, Cantidad FLOAT)
-- run
INSERT INTO Lineas VALUES (200, 1)
INSERT INTO Lineas VALUES (100, 2)
INSERT INTO Pagos VALUES (10, 1)
INSERT INTO Pagos VALUES (20, 2)
-- run
SELECT Importe + Importe FROM Lineas WHERE Cantidad = 1
-- expect
error 8115
-- run
SELECT Importe + Importe, Importe / 3 FROM Pagos WHERE Cantidad = 1
-- expect
rowset
row 20|3.3333
end
-- run
SELECT AVG(Cantidad), SUM(Importe) / 7 FROM Pagos
-- expect
rowset
row 1.5|4.2857
end
-- run
SELECT AVG(Cantidad), SUM(Importe) / 7 FROM Lineas
-- expect
rowset
row 1|42
end
-- run
SELECT AVG(p.Cantidad), AVG(l.Cantidad) FROM Pagos p JOIN Lineas l ON l.Cantidad = p.Cantidad
-- expect
rowset
row 1.5|1
end
