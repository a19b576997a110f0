-- INT literals compute in INT, left to right, products first: past its range on the way is
-- error 8115 even when the end is back inside; a literal beyond INT, or a fraction, makes the
-- expression numeric.
-- run
SELECT 2147483647 + 1 - 1
-- expect
error 8115
-- run
SELECT 5 - 46341 * 46341
-- expect
error 8115
-- run
SELECT 2147483647 - 1 + 1, 46340 * 46340, 2147483648 + 1, 2147483647 + 1.5
-- expect
rowset
row 2147483647|2147395600|2147483649|2147483648.5
end
