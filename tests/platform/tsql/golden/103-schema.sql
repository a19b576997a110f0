-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- Run after the other statements, it fails on both engines: the table is not there.
-- T-SQL
ALTER TABLE articulos ADD Notas TEXT NOT NULL DEFAULT ''
-- SQLite
ALTER TABLE articulos ADD Notas TEXT COLLATE NOCASE NOT NULL DEFAULT ''
-- PostgreSQL
ALTER TABLE articulos ADD Notas zlx_text COLLATE zlx_ci_ai NOT NULL DEFAULT ''
-- result
error 208
