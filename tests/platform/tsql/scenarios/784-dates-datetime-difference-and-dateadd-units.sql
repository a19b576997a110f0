-- A DATETIME minus a DATETIME, or minus a date text (read as a DATETIME), is a DATETIME: the
-- difference as the date that many days after 1900-01-01 (a day and a half is 1900-01-02 12:00).
-- DATE takes no subtraction (8117); DATEADD by a unit of the time of day on a DATE, or of the day
-- on a TIME, is error 9810.
-- run
CREATE TABLE Tareas (id INT, inicio DATETIME, fin DATETIME, dia DATE, hora TIME)
-- run
INSERT INTO Tareas VALUES (1, '14/03/2024 08:00', '15/03/2024 20:00', '15/03/2024', '10:00')
-- run
SELECT fin - inicio, fin - '15/03/2024 19:30', DATEPART(hour, fin - inicio), DATEDIFF(hour, '19000101', fin - inicio) FROM Tareas
-- expect
rowset
row 1900-01-02 12:00:00|1900-01-01 00:30:00|12|36
end
-- run
SELECT COUNT(*) FROM Tareas WHERE fin - inicio > '01/01/1900 12:00'
-- expect
rowset
row 1
end
-- run
SELECT dia - CAST('14/03/2024' AS DATE) FROM Tareas
-- expect
error 8117
-- run
SELECT DATEADD(hour, 1, dia) FROM Tareas
-- expect
error 9810
-- run
SELECT DATEADD(day, 1, hora) FROM Tareas
-- expect
error 9810
-- run
SELECT DATEADD(day, 1, dia), CONVERT(VARCHAR(8), DATEADD(minute, 90, hora), 108) FROM Tareas
-- expect
rowset
row 2024-03-16 00:00:00|11:30:00
end
