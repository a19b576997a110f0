-- Databases and locks.
-- T-SQL
SELECT * FROM Grupo.dbo.locks WITH (TABLOCKX) WHERE tabla = 'clientes' AND id_zolmar = 3
-- SQLite
SELECT * FROM grupo_locks.locks WHERE tabla = 'clientes' AND id_zolmar = 3
-- PostgreSQL
SELECT * FROM grupo.locks WHERE tabla = 'clientes' AND id_zolmar = 3
-- result
rowset
end
