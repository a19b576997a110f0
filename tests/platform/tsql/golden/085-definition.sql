-- Definitions.
-- Run after the other statements, it fails on both engines: the table or column is already there.
-- T-SQL
ALTER TABLE clientes ADD Alta DATETIME NOT NULL DEFAULT '17530101'
-- SQLite
ALTER TABLE clientes ADD Alta DATETIME NOT NULL DEFAULT '1753-01-01 00:00:00'
-- PostgreSQL
ALTER TABLE clientes ADD Alta timestamp(3) NOT NULL DEFAULT '1753-01-01 00:00:00'
-- result
error 2705
