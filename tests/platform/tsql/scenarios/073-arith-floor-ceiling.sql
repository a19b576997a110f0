-- FLOOR and CEILING round down and up.
-- run
SELECT FLOOR(-1.5), CEILING(1.2), ABS(-3)
-- expect
rowset
row -2|2|3
end
