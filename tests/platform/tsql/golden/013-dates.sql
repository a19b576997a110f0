-- Dates.
-- T-SQL
SELECT CAST(ServerProperty('ProductVersion') AS VARCHAR(128))
-- SQLite
SELECT (substr(CAST('8.00.2039' AS TEXT), 1, 128) COLLATE NOCASE)
-- PostgreSQL
SELECT (zlx_varchar(CAST('8.00.2039' AS bpchar), 128) COLLATE zlx_ci_ai)
-- result
rowset
row 8.00.2039
end
