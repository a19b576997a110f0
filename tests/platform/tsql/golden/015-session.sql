-- Session values.
-- T-SQL
SELECT @@Identity
-- SQLite
SELECT 41
-- PostgreSQL
SELECT 41
-- result
rowset
row 1
end
