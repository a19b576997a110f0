-- Translation dictionary, in the main database.
-- T-SQL
SELECT zolmarID, texto, traduccion FROM empresa..idioma WHERE idioma=5 AND (texto='&Nuevo' OR traduccion='&Nuevo')
-- SQLite
SELECT zolmarID, texto, traduccion FROM main.idioma WHERE idioma=5 AND (texto='&Nuevo' OR traduccion='&Nuevo')
-- PostgreSQL
SELECT zolmarID, texto, traduccion FROM empresa.idioma WHERE idioma=5 AND (texto='&Nuevo' OR traduccion='&Nuevo')
-- result
rowset
end
