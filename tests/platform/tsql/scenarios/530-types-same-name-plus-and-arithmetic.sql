-- A column name that holds text in one table and numbers in another is typed by the table the
-- statement reads or writes: `+` adds the numbers of the one and joins the texts of the other,
-- and an UPDATE stores the sum.
-- run
CREATE TABLE Clientes (Codigo VARCHAR(10), Nombre VARCHAR(20))
CREATE TABLE Facturas (Codigo INT, Total INT)
-- run
INSERT INTO Clientes VALUES ('A1', 'Ana')
INSERT INTO Facturas VALUES (5, 10)
-- run
SELECT Codigo + 1 FROM Facturas
-- expect
rowset
row 6
end
-- run
SELECT Codigo + Nombre, Nombre + Codigo FROM Clientes
-- expect
rowset
row A1Ana|AnaA1
end
-- run
SELECT Codigo + Total, Total + Codigo, Codigo * 2 - Total FROM Facturas
-- expect
rowset
row 15|15|0
end
-- run
UPDATE Facturas SET Codigo = Codigo + 1
-- expect
count 1
-- run
SELECT Codigo, Codigo + Codigo FROM Facturas
-- expect
rowset
row 6|12
end
-- run
SELECT Facturas.Codigo + 1, x.Codigo + x.Codigo FROM Facturas, Clientes AS x
-- expect
rowset
row 7|A1A1
end
-- run
SELECT Codigo + 1 FROM dbo.Facturas
-- expect
rowset
row 7
end
