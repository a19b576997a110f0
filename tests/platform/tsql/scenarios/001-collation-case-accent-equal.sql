-- Case and accents do not count in '=' under the database's Spanish case- and accent-insensitive collation.
-- run
SELECT CASE WHEN 'jose' = 'JOSÉ' THEN 1 ELSE 0 END, CASE WHEN 'árbol' = 'ARBOL' THEN 1 ELSE 0 END
-- expect
rowset
row 1|1
end
