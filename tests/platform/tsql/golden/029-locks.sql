-- Databases and locks.
-- T-SQL
SELECT @@Identity AS NewID
-- SQLite
SELECT 41 AS NewID
-- PostgreSQL
SELECT 41 AS NewID
-- result
rowset
row 1
end
