-- MONEY divided by an integer keeps four decimal places.
-- run
SELECT CAST(10 AS MONEY) / 3
-- expect
rowset
row 3.3333
end
