-- Trailing blanks are ignored when texts are compared with '=' and '<>'.
-- run
SELECT CASE WHEN 'ABC' = 'ABC   ' THEN 1 ELSE 0 END, CASE WHEN 'ABC' <> 'ABC   ' THEN 1 ELSE 0 END
-- expect
rowset
row 1|0
end
