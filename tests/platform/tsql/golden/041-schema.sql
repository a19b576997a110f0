-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
SELECT count(*) FROM sysdatabases WHERE name = 'empresa'
-- SQLite
SELECT count(*) FROM sysdatabases WHERE name = 'empresa'
-- PostgreSQL
SELECT count(*) FROM sysdatabases WHERE name = 'empresa'
-- result
rowset
row 1
end
