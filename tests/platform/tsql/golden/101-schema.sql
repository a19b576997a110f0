-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- Run after the other statements, it fails on both engines: the table is not there.
-- T-SQL
ALTER TABLE articulos ADD Coste FLOAT8 NOT NULL DEFAULT 0
-- SQLite
ALTER TABLE articulos ADD Coste FLOAT8 NOT NULL DEFAULT 0
-- PostgreSQL
ALTER TABLE articulos ADD Coste FLOAT8 NOT NULL DEFAULT 0
-- result
error 208
