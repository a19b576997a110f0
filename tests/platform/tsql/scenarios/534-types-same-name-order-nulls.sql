-- NULLs sort first ascending and last descending in a column that lets them be, whether or not
-- another table has a NOT NULL column of the same name, and in a NOT NULL column of a table an
-- outer join may leave without a row.
-- run
CREATE TABLE Articulos (Codigo INT NOT NULL, Precio INT NOT NULL)
CREATE TABLE Ofertas (Codigo INT NULL, Precio INT NULL)
-- run
INSERT INTO Articulos VALUES (2, 20)
INSERT INTO Articulos VALUES (1, 10)
INSERT INTO Ofertas VALUES (2, 20)
INSERT INTO Ofertas VALUES (NULL, NULL)
INSERT INTO Ofertas VALUES (1, 10)
-- run
SELECT Codigo FROM Ofertas ORDER BY Codigo
-- expect
rowset
row NULL
row 1
row 2
end
-- run
SELECT o.Codigo, a.Precio FROM Ofertas o LEFT JOIN Articulos a ON a.Codigo = o.Codigo ORDER BY a.Precio
-- expect
rowset
row NULL|NULL
row 1|10
row 2|20
end
-- run
SELECT a.Codigo FROM Articulos a RIGHT JOIN Ofertas o ON o.Codigo = a.Codigo ORDER BY a.Codigo DESC
-- expect
rowset
row 2
row 1
row NULL
end
-- run
SELECT Codigo FROM Articulos ORDER BY Codigo DESC
-- expect
rowset
row 2
row 1
end
