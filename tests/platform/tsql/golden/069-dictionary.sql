-- Translation dictionary, in the main database.
-- T-SQL
UPDATE empresa..idioma SET texto = '&Nuevo', revisar = 1 WHERE zolmarID=9
-- SQLite
UPDATE main.idioma SET texto = '&Nuevo', revisar = 1 WHERE zolmarID=9
-- PostgreSQL
UPDATE empresa.idioma SET texto = '&Nuevo', revisar = 1 WHERE zolmarID=9
-- result
count 0
