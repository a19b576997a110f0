-- Translation dictionary, in the main database.
-- T-SQL
INSERT INTO empresa..idioma (clave, idioma, texto) VALUES ('menu',5,'&Nuevo')
-- SQLite
INSERT INTO main.idioma (clave, idioma, texto) VALUES ('menu',5,'&Nuevo')
-- PostgreSQL
INSERT INTO empresa.idioma (clave, idioma, texto) VALUES ('menu',5,'&Nuevo')
-- result
count 1
