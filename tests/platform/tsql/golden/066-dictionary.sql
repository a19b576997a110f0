-- Translation dictionary, in the main database.
-- T-SQL
SELECT texto, traduccion FROM empresa..idioma WHERE idioma=5 ORDER BY texto
-- SQLite
SELECT texto, traduccion FROM main.idioma WHERE idioma=5 ORDER BY texto
-- PostgreSQL
SELECT texto, traduccion FROM empresa.idioma WHERE idioma=5 ORDER BY texto NULLS FIRST
-- result
rowset
end
