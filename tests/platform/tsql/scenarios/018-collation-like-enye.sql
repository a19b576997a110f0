-- LIKE keeps ñ apart from n.
-- run
SELECT CASE WHEN 'Peña' LIKE 'pen%' THEN 1 ELSE 0 END, CASE WHEN 'Peña' LIKE 'PEÑ_' THEN 1 ELSE 0 END
-- expect
rowset
row 0|1
end
