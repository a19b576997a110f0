-- ISDATE answers 1 for a date and 0 for an impossible one.
-- run
SELECT ISDATE('28/02/2024'), ISDATE('31/02/2024'), ISDATE('hola')
-- expect
rowset
row 1|0|0
end
