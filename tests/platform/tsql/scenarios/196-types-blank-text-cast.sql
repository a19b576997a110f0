-- CAST of a blank text: 0 for the number types, 1900-01-01 for DATETIME, error 8114 for DECIMAL;
-- next to an integer it is 0 too.
-- run
SELECT CAST('' AS INT), CAST(' ' AS SMALLINT), CAST('' AS DATETIME), '' + 5
-- expect
rowset
row 0|0|1900-01-01 00:00:00|5
end
-- run
SELECT CAST('' AS DECIMAL(5,2))
-- expect
error 8114
