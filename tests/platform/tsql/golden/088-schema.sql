-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- Run after the other statements, it fails on both engines: the table or column is already there.
-- T-SQL
ALTER TABLE diccionario ADD ancho SMALLINT
-- SQLite
ALTER TABLE diccionario ADD ancho SMALLINT CONSTRAINT "zlx_220_ancho" CHECK (ancho BETWEEN -32768 AND 32767)
-- PostgreSQL
ALTER TABLE diccionario ADD ancho SMALLINT
-- result
error 2705
