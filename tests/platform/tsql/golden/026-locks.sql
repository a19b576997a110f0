-- Databases and locks.
-- T-SQL
SELECT filename FROM master..sysdatabases WHERE name='master'
-- SQLite
SELECT filename FROM sysdatabases WHERE name='master'
-- PostgreSQL
SELECT filename FROM sysdatabases WHERE name='master'
-- result on SQLite
rowset
row {any}
end
-- result on PostgreSQL
rowset
row 
end
