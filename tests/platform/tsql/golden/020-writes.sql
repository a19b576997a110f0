-- Writes.
-- T-SQL
UPDATE traducciones SET texto = N'Año' + ' nuevo', revisar = 1 WHERE zolmarID=9
-- SQLite
UPDATE traducciones SET texto = 'Año' || ' nuevo', revisar = 1 WHERE zolmarID=9
-- PostgreSQL
UPDATE traducciones SET texto = 'Año' || ' nuevo', revisar = 1 WHERE zolmarID=9
-- result
count 0
