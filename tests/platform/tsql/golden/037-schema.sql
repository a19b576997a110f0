-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
CREATE INDEX tipo ON diccionario(tipo)
-- SQLite
CREATE INDEX diccionario_tipo ON diccionario(tipo)
-- PostgreSQL
CREATE INDEX diccionario_tipo ON diccionario(tipo NULLS FIRST)
-- result
count -1
