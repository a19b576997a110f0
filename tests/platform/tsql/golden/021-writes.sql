-- Writes.
-- T-SQL
UPDATE t SET n = n + 1
-- SQLite
UPDATE t SET n = n + 1
-- PostgreSQL
UPDATE t SET n = n + 1
-- result
count 0
