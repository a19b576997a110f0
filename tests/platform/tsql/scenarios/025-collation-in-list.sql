-- IN compares under the collation.
-- gap sqlite: SELECT CASE WHEN 'JOSÉ' IN ('ana', 'jose') THEN 1 ELSE 0 END answers row 0, not row 1
-- gap postgres: SELECT CASE WHEN 'JOSÉ' IN ('ana', 'jose') THEN 1 ELSE 0 END answers row 0, not row 1
-- run
SELECT CASE WHEN 'JOSÉ' IN ('ana', 'jose') THEN 1 ELSE 0 END
-- expect
rowset
row 1
end
