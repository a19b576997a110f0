-- Schema management: tables, columns and their defaults, indexes, catalog lookups.
-- Run after the other statements, it fails on both engines: the table or column is already there.
-- T-SQL
ALTER TABLE BLOBs ADD Contenido IMAGE
-- SQLite
ALTER TABLE BLOBs ADD Contenido IMAGE
-- PostgreSQL
ALTER TABLE BLOBs ADD Contenido zlx_image
-- result
error 2705
