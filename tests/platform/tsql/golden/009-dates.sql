-- Dates.
-- T-SQL
SELECT GetDate()
-- SQLite
SELECT (SELECT zlx_astype(strftime('%Y-%m-%d %H:%M:%f', 'now', 'localtime'), 'DATETIME') UNION ALL SELECT datetime FROM temp.zlx_date_types)
-- PostgreSQL
SELECT zlx_datetime(CAST(statement_timestamp() AS timestamp))
-- result
rowset
row {any}
end
