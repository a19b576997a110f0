-- Databases and locks.
-- T-SQL
SELECT * FROM syscolumns WHERE id = object_id('clientes') AND name='Nombre'
-- SQLite
SELECT * FROM syscolumns WHERE id = (SELECT id FROM sysobjects WHERE xtype IN ('U', 'V') AND name = 'clientes') AND name='Nombre'
-- PostgreSQL
SELECT * FROM syscolumns WHERE id = CAST(COALESCE(CAST(to_regclass('clientes') AS oid), (SELECT c.oid FROM pg_class c WHERE c.relnamespace = CAST(current_schema() AS regnamespace) AND lower(c.relname) = lower('clientes') LIMIT 1)) AS integer) AND name='Nombre'
-- result on SQLite
rowset
row Nombre|{any}|231|80|{any}
end
-- result on PostgreSQL
rowset
row nombre|{any}|231|80|{any}
end
