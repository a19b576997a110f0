-- Dates.
-- T-SQL
SELECT CAST(ServerProperty('ProductVersion') AS VARCHAR(128))
-- SQLite
SELECT CAST('8.00.2039' AS TEXT)
-- PostgreSQL
SELECT CAST('8.00.2039' AS varchar(128))
-- result
rowset
row 8.00.2039
end
