-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- T-SQL
CREATE INDEX idioma ON idioma(idioma)
-- SQLite
CREATE INDEX idioma_idioma ON idioma(idioma)
-- PostgreSQL
CREATE INDEX idioma_idioma ON idioma(idioma NULLS FIRST)
-- result
count -1
