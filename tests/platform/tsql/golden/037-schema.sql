-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
CREATE INDEX tipo ON diccionario(tipo)
-- SQLite
CREATE INDEX diccionario_tipo ON diccionario(tipo)
-- PostgreSQL
CREATE INDEX diccionario_tipo ON diccionario(tipo)
-- result
count -1
