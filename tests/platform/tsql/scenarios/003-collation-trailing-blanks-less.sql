-- Trailing blanks are ignored by '<' as well.
-- run
SELECT CASE WHEN 'ABC  ' < 'ABC' THEN 1 ELSE 0 END, CASE WHEN 'ABC ' < 'abd' THEN 1 ELSE 0 END
-- expect
rowset
row 0|1
end
