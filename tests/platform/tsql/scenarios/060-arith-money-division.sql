-- MONEY divided by an integer keeps four decimal places.
-- gap sqlite: SELECT CAST(10 AS MONEY) / 3 answers row 3, not row 3.3333
-- gap postgres: SELECT CAST(10 AS MONEY) / 3 answers row 3.3333333333333333, not row 3.3333
-- run
SELECT CAST(10 AS MONEY) / 3
-- expect
rowset
row 3.3333
end
