-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
DROP TABLE antiguos
-- SQLite
DROP TABLE antiguos
-- PostgreSQL
DROP TABLE antiguos
-- result
count -1
