-- Dates.
-- T-SQL
SELECT DATABASEPROPERTY('empresa','IsOffLine')
-- SQLite
SELECT 0
-- PostgreSQL
SELECT 0
-- result
rowset
row 0
end
