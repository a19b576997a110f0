-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
CREATE INDEX tabla ON locks(tabla)
-- SQLite
CREATE INDEX empresa_locks.locks_tabla ON locks(tabla)
-- PostgreSQL
CREATE INDEX locks_tabla ON locks(tabla NULLS FIRST)
-- result
count -1
