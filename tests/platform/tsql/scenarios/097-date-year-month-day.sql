-- YEAR, MONTH and DAY of a date.
-- run
SELECT YEAR('20240315'), MONTH('20240315'), DAY('20240315')
-- expect
rowset
row 2024|3|15
end
