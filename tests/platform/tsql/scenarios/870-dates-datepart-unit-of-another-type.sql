-- DATEPART and DATENAME of a unit of the time of day (hour ... nanosecond) on a DATE column or
-- variable, or of a unit of the day (year ... weekday) on a TIME one, are error 9810, as DATEADD
-- is. A text literal has no type: its missing day is 1900-01-01, its missing time midnight.
-- DATEDIFF takes both: a TIME counts as on 1900-01-01, a DATE at midnight.
-- run
CREATE TABLE Citas (id INT, dia DATE, hora TIME, momento DATETIME)
-- run
INSERT INTO Citas VALUES (1, '15/03/2024', '10:20:30.123', '15/03/2024 10:20:30')
-- run
SELECT DATEPART(hour, dia) FROM Citas
-- expect
error 9810
-- run
SELECT DATENAME(minute, dia) FROM Citas
-- expect
error 9810
-- run
SELECT DATEPART(ms, dia) FROM Citas
-- expect
error 9810
-- run
SELECT DATEPART(year, hora) FROM Citas
-- expect
error 9810
-- run
SELECT DATENAME(weekday, hora) FROM Citas
-- expect
error 9810
-- run
SELECT DATEPART(dayofyear, hora) FROM Citas
-- expect
error 9810
-- run
DECLARE @t TIME = '12:10:30.123'
SELECT DATEPART(year, @t)
-- expect
error 9810
-- run
DECLARE @d DATE = '15/03/2024'
SELECT DATENAME(hour, @d)
-- expect
error 9810
-- run
SELECT DATEPART(year, '12:10:30.123'), DATEPART(month, '12:10:30.123'), DATEPART(day, '12:10:30.123'), DATEPART(hour, '15/03/2024')
-- expect
rowset
row 1900|1|1|0
end
-- run
SELECT DATEPART(day, dia), DATENAME(weekday, dia), DATEPART(hour, hora), DATEPART(ms, hora), DATEPART(hour, momento), DATEPART(day, momento) FROM Citas
-- expect
rowset
row 15|viernes|10|123|10|15
end
-- run
SELECT DATEDIFF(day, hora, hora), DATEDIFF(year, '19000101', hora), DATEDIFF(hour, dia, momento), DATEDIFF(minute, hora, momento) FROM Citas
-- expect
rowset
row 0|0|10|65324160
end
