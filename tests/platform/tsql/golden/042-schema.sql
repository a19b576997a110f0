-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
SELECT name FROM sysobjects WHERE xtype = 'U' AND name = 'clientes'
-- SQLite
SELECT name FROM sysobjects WHERE xtype = 'U' AND name = 'clientes'
-- PostgreSQL
SELECT name FROM sysobjects WHERE xtype = 'U' AND name = 'clientes'
-- result
rowset
row clientes
end
