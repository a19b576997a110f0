-- LIKE ignores case and accents.
-- run
SELECT CASE WHEN 'José' LIKE 'jose' THEN 1 ELSE 0 END, CASE WHEN 'CANCIÓN' LIKE '%cion' THEN 1 ELSE 0 END
-- expect
rowset
row 1|1
end
