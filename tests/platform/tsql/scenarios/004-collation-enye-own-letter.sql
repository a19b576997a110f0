-- ñ is a letter of its own: 'Peña' and 'Pena' differ even when accents do not count.
-- run
SELECT CASE WHEN 'Peña' = 'Pena' THEN 1 ELSE 0 END, CASE WHEN 'PEÑA' = 'peña' THEN 1 ELSE 0 END
-- expect
rowset
row 0|1
end
