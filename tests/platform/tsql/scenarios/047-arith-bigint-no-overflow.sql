-- BIGINT arithmetic goes past the INT range.
-- run
SELECT CAST(100000 AS BIGINT) * 100000
-- expect
rowset
row 10000000000
end
