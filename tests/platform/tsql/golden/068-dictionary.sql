-- Translation dictionary, in the main database.
-- T-SQL
SELECT zolmarID, texto, traduccion FROM empresa..idioma WHERE idioma=5 AND (texto='&Nuevo' OR traduccion='&Nuevo') AND clave = 'menu'
-- SQLite
SELECT zolmarID, texto, traduccion FROM main.idioma WHERE idioma=5 AND (texto='&Nuevo' OR traduccion='&Nuevo') AND clave = 'menu'
-- PostgreSQL
SELECT zolmarID, texto, traduccion FROM empresa.idioma WHERE idioma=5 AND (texto='&Nuevo' OR traduccion='&Nuevo') AND clave = 'menu'
-- result
rowset
end
