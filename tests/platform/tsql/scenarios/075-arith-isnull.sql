-- ISNULL gives the replacement for NULL.
-- run
SELECT ISNULL(NULL, 3) + 1, ISNULL(2, 3)
-- expect
rowset
row 4|2
end
