-- YEAR, MONTH and DAY of a date.
-- gap sqlite: SELECT YEAR('20240315'), MONTH('20240315'), DAY('20240315') answers error 195, not row 2024|3|15
-- gap postgres: SELECT YEAR('20240315'), MONTH('20240315'), DAY('20240315') answers error 195, not row 2024|3|15
-- run
SELECT YEAR('20240315'), MONTH('20240315'), DAY('20240315')
-- expect
rowset
row 2024|3|15
end
