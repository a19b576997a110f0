-- A text column in arithmetic with an integer is read as an integer, as SQL Server's data
-- type precedence says: codigo + 1 adds (the next code after MAX(codigo) too), two texts still
-- join, ISNULL(text, 0) keeps the text's type, and a text that is no number is error 245.
-- run
CREATE TABLE articulos (codigo VARCHAR(10), nombre VARCHAR(20))
-- run
INSERT INTO articulos VALUES ('9', 'tuerca')
INSERT INTO articulos VALUES (' 11', 'perno')
-- run
SELECT codigo + 1, 2 * codigo, codigo - 1 FROM articulos ORDER BY nombre
-- expect
rowset
row 12|22|10
row 10|18|8
end
-- run
SELECT MAX(codigo) + 1 FROM articulos
-- expect
rowset
row 10
end
-- run
SELECT ISNULL(MAX(codigo), 0) + 1 FROM articulos WHERE nombre = 'clavo'
SELECT ISNULL(MAX(codigo), 0) + 1 FROM articulos
-- expect
rowset
row 1
end
rowset
row 10
end
-- run
SELECT codigo + nombre FROM articulos WHERE nombre = 'tuerca'
-- expect
rowset
row 9tuerca
end
-- run
INSERT INTO articulos VALUES ('A1', 'arandela')
-- run
SELECT codigo + 1 FROM articulos
-- expect
error 245
