-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- Run after the other statements, it fails on both engines: the table or column is already there.
-- T-SQL
ALTER TABLE diccionario ADD tabla VARCHAR(30)
-- SQLite
ALTER TABLE diccionario ADD tabla VARCHAR(30) COLLATE NOCASE CONSTRAINT "zlx_8152_tabla" CHECK (length(rtrim(tabla)) <= 30)
-- PostgreSQL
ALTER TABLE diccionario ADD tabla zlx_varchar_30 COLLATE zlx_ci_ai
-- result
error 2705
