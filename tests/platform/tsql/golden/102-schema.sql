-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- Run after the other statements, it fails on both engines: the table is not there.
-- T-SQL
ALTER TABLE articulos ADD Nombre VARCHAR(40) NOT NULL DEFAULT ''
-- SQLite
ALTER TABLE articulos ADD Nombre VARCHAR(40) COLLATE NOCASE CONSTRAINT "zlx_8152_Nombre" CHECK (length(rtrim(Nombre)) <= 40) NOT NULL DEFAULT ''
-- PostgreSQL
ALTER TABLE articulos ADD Nombre zlx_varchar_40 COLLATE zlx_ci_ai NOT NULL DEFAULT ''
-- result
error 208
