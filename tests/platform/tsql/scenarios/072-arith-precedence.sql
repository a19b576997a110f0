-- Multiplication and division before addition, left to right.
-- run
SELECT 5 / 2 * 2, 2 + 3 * 4, 20 / 2 / 5
-- expect
rowset
row 4|14|2
end
