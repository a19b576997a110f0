-- A text written with the month's name in the session language (full or short, any case, a
-- comma or not, a time after it) reads as a date whatever DATEFORMAT says: in CAST and CONVERT
-- (in the styles that write such texts too), stored in a date column and compared with one. A
-- name of another language is no date (241); an impossible day is out of range (242).
-- run
SELECT CONVERT(DATETIME, 'Mar 15 2024  2:30PM'), CAST('15 Abr 2024' AS DATETIME), CONVERT(DATETIME, 'Ene 05, 2024', 107), CONVERT(DATETIME, '05 Ago 2024 14:30:15:123', 113), CAST('3 diciembre 2024' AS DATE)
-- expect
rowset
row 2024-03-15 14:30:00|2024-04-15 00:00:00|2024-01-05 00:00:00|2024-08-05 14:30:15|2024-12-03 00:00:00
end
-- run
SELECT DATEPART(ms, CONVERT(DATETIME, '05 Ago 2024 14:30:15:123', 113)), DATEPART(ms, CONVERT(DATETIME, 'Ago 5 2024  2:30:15:123PM', 109))
-- expect
rowset
row 123|123
end
-- run
CREATE TABLE Eventos (id INT, f DATETIME)
-- run
INSERT INTO Eventos VALUES (1, 'Dic 24 2024 10:00PM')
INSERT INTO Eventos VALUES (2, '24 Dic 2024')
-- run
SELECT id FROM Eventos WHERE f = '24 diciembre 2024 22:00' OR f < 'Enero 1, 1990'
-- expect
rowset
row 1
end
-- run
SELECT ISDATE('Sep 30 2024'), ISDATE('Sep 31 2024'), ISDATE('Jan 15 2024')
-- expect
rowset
row 1|0|0
end
-- run
SELECT CAST('Jan 15 2024' AS DATETIME)
-- expect
error 241
-- run
SELECT CONVERT(DATETIME, 'Feb 30 2024', 100)
-- expect
error 242
