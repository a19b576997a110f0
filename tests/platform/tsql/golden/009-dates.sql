-- Dates.
-- T-SQL
SELECT GetDate()
-- SQLite
SELECT (SELECT datetime('now', 'localtime') UNION ALL SELECT datetime FROM temp.zlx_date_types)
-- PostgreSQL
SELECT LOCALTIMESTAMP(3)
-- result
rowset
row {any}
end
