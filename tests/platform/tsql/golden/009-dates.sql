-- Dates.
-- T-SQL
SELECT GetDate()
-- SQLite
SELECT datetime('now', 'localtime')
-- PostgreSQL
SELECT LOCALTIMESTAMP(3)
-- result
rowset
row {any}
end
