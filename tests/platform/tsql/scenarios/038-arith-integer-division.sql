-- Dividing two integers gives an integer, truncated toward zero.
-- run
SELECT 7 / 2, -7 / 2, 7 % 3, -7 % 3
-- expect
rowset
row 3|-3|1|-1
end
