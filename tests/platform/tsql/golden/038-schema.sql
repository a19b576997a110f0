-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
CREATE INDEX tipo ON idioma(tipo)
-- SQLite
CREATE INDEX idioma_tipo ON idioma(tipo)
-- PostgreSQL
CREATE INDEX idioma_tipo ON idioma(tipo NULLS FIRST)
-- result
count -1
