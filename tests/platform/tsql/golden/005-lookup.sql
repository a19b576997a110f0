-- Cursor navigation and lookups.
-- T-SQL
SELECT count(*) AS cuantos FROM clientes WHERE Nombre LIKE 'A|%%' ESCAPE '|'
-- SQLite
SELECT count(*) AS cuantos FROM clientes WHERE Nombre LIKE 'A|%%' ESCAPE '|'
-- PostgreSQL
SELECT count(*) AS cuantos FROM clientes WHERE Nombre ~~~ ('A[%]%')
-- result
rowset
row 0
end
