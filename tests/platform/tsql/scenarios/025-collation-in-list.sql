-- IN compares under the collation.
-- run
SELECT CASE WHEN 'JOSÉ' IN ('ana', 'jose') THEN 1 ELSE 0 END
-- expect
rowset
row 1
end
