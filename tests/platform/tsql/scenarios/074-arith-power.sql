-- POWER of integers is an integer.
-- run
SELECT POWER(2, 10)
-- expect
rowset
row 1024
end
