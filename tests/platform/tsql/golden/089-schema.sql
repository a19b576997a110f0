-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- Run after the other statements, it fails on both engines: the table or column is already there.
-- T-SQL
ALTER TABLE idioma ADD idioma INTEGER
-- SQLite
ALTER TABLE idioma ADD idioma INTEGER CONSTRAINT "zlx_8115_idioma" CHECK (idioma BETWEEN -2147483648 AND 2147483647)
-- PostgreSQL
ALTER TABLE idioma ADD idioma INTEGER
-- result
error 2705
