-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- Run after the other statements, it fails on both engines: the table or column is already there.
-- T-SQL
ALTER TABLE locks ADD cuando DATETIME
-- SQLite
ALTER TABLE empresa_locks.locks ADD cuando DATETIME
-- PostgreSQL
ALTER TABLE locks ADD cuando timestamp(3)
-- result
error 2705
