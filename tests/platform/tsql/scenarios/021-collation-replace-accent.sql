-- REPLACE finds the pattern whatever its accents.
-- run
SELECT REPLACE('canción CANCION', 'cancion', 'tema')
-- expect
rowset
row tema tema
end
