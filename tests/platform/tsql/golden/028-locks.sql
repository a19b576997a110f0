-- Databases and locks.
-- T-SQL
SELECT texto, traduccion FROM traducciones WHERE idioma=2 ORDER BY texto
-- SQLite
SELECT texto, traduccion FROM traducciones WHERE idioma=2 ORDER BY texto
-- PostgreSQL
SELECT texto, traduccion FROM traducciones WHERE idioma=2 ORDER BY texto NULLS FIRST
-- result
rowset
end
