-- Databases and locks.
-- T-SQL
DELETE FROM empresa..locks WHERE ZolmarID IN (1,2)
-- SQLite
DELETE FROM empresa_locks.locks WHERE ZolmarID IN (1,2)
-- PostgreSQL
DELETE FROM empresa.locks WHERE ZolmarID IN (1,2)
-- result
count 0
