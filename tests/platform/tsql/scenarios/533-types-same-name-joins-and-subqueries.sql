-- Qualified and unqualified names take their types from the joined table they belong to, a
-- subquery's names from its own tables (and from the outer query's when they are not there);
-- UPDATE ... FROM and INSERT ... SELECT compute with the types of the tables they read. A name
-- two joined tables have is still error 209.
-- run
CREATE TABLE Clientes (Codigo VARCHAR(10), Nombre VARCHAR(20))
CREATE TABLE Facturas (Codigo INT, Cliente VARCHAR(10), Total INT)
CREATE TABLE Resumen (Codigo VARCHAR(20), Valor INT)
-- run
INSERT INTO Clientes VALUES ('A1', 'Ana')
INSERT INTO Clientes VALUES ('B2', 'Luis')
INSERT INTO Facturas VALUES (5, 'A1', 10)
INSERT INTO Facturas VALUES (7, 'B2', 20)
-- run
SELECT f.Codigo + f.Total, c.Codigo + c.Nombre FROM Facturas f JOIN Clientes c ON c.Codigo = f.Cliente ORDER BY f.Codigo
-- expect
rowset
row 15|A1Ana
row 27|B2Luis
end
-- run
SELECT Nombre FROM Clientes WHERE Codigo + '' IN (SELECT Cliente FROM Facturas WHERE Codigo + 1 = 6)
-- expect
rowset
row Ana
end
-- run
SELECT c.Nombre, (SELECT SUM(Codigo + Total) FROM Facturas WHERE Cliente = c.Codigo) FROM Clientes c ORDER BY c.Nombre
-- expect
rowset
row Ana|15
row Luis|27
end
-- run
SELECT Nombre FROM Clientes WHERE EXISTS (SELECT 1 FROM Facturas f WHERE f.Cliente = Clientes.Codigo AND Total + Codigo = 27)
-- expect
rowset
row Luis
end
-- run
UPDATE f SET Total = f.Total + f.Codigo FROM Facturas f JOIN Clientes c ON c.Codigo = f.Cliente WHERE c.Nombre = 'Ana'
-- expect
count 1
-- run
INSERT INTO Resumen (Codigo, Valor) SELECT Cliente + Cliente, Codigo + Total FROM Facturas
-- expect
count 2
-- run
SELECT Codigo, Valor FROM Resumen ORDER BY Valor
-- expect
rowset
row A1A1|20
row B2B2|27
end
-- run
SELECT Codigo + 1 FROM Facturas JOIN Clientes ON Cliente = Nombre
-- expect
error 209
