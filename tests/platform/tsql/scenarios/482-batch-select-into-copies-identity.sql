-- SELECT ... INTO copies an identity column selected as it is (the new table numbers its next
-- row after the copied ones) and the NOT NULL of the columns it copies; an expression of the
-- identity is no identity but is NOT NULL, and other expressions may hold NULL.
-- run
CREATE TABLE origen (id INT IDENTITY(1,1), nombre VARCHAR(20) NOT NULL, nota VARCHAR(20) NULL)
-- run
INSERT INTO origen (nombre, nota) VALUES ('uno', NULL) INSERT INTO origen (nombre, nota) VALUES ('dos', 'x') INSERT INTO origen (nombre, nota) VALUES ('tres', NULL)
-- run
SELECT id, nombre, nota INTO copia FROM origen WHERE id < 3
-- expect
count 2
-- run
INSERT INTO copia (nombre) VALUES ('cuatro')
-- expect
count 1
-- run
SELECT id, nombre, nota FROM copia ORDER BY id
-- expect
rowset
row 1|uno|NULL
row 2|dos|x
row 3|cuatro|NULL
end
-- run
INSERT INTO copia (nombre, nota) VALUES (NULL, 'y')
-- expect
error 515
-- run
SELECT id + 0 AS numero, UPPER(nota) AS nota INTO calculada FROM origen
-- expect
count 3
-- run
INSERT INTO calculada (numero, nota) VALUES (9, NULL)
-- expect
count 1
-- run
INSERT INTO calculada (nota) VALUES ('cinco')
-- expect
error 515
