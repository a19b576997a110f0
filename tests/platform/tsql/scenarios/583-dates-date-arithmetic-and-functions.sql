-- DATE takes no days by + or - (206), where DATETIME does; DATEADD, DATEDIFF, DATEPART, YEAR,
-- MONTH, DAY and DATENAME work on it.
-- run
CREATE TABLE Citas (dia DATE, alta DATETIME)
-- run
INSERT INTO Citas VALUES ('15/03/2024', '15/03/2024')
-- run
SELECT alta + 1, alta - 1 FROM Citas
-- expect
rowset
row 2024-03-16 00:00:00|2024-03-14 00:00:00
end
-- run
SELECT dia + 1 FROM Citas
-- expect
error 206
-- run
SELECT CAST('15/03/2024' AS DATE) - 1
-- expect
error 206
-- run
SELECT DATEADD(day, 1, dia), DATEADD(month, 1, dia), DATEDIFF(day, dia, '20/03/2024'),
       YEAR(dia), MONTH(dia), DAY(dia), DATEPART(weekday, dia), DATENAME(month, dia)
FROM Citas
-- expect
rowset
row 2024-03-16 00:00:00|2024-04-15 00:00:00|5|2024|3|15|5|marzo
end
