-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- Run after the other statements, it fails on both engines: the table or column is already there.
-- T-SQL
ALTER TABLE diccionario ADD tipo TINYINT
-- SQLite
ALTER TABLE diccionario ADD tipo TINYINT CONSTRAINT "zlx_220_tipo" CHECK (tipo BETWEEN 0 AND 255)
-- PostgreSQL
ALTER TABLE diccionario ADD tipo smallint CONSTRAINT "zlx_220_tipo" CHECK (tipo BETWEEN 0 AND 255)
-- result
error 2705
