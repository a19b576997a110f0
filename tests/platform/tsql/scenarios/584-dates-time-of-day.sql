-- A TIME column keeps the time of day of a text ('14:30') or of a date and time, to its digits
-- (TIME(0) rounds to the second); CAST(datetime AS TIME) is its time and CONVERT style 108
-- writes it. A TIME reads back as a time on day 0 (1899-12-30), as the provider gives it.
-- run
CREATE TABLE Turnos (id INT, inicio TIME, fin TIME(0))
-- run
INSERT INTO Turnos VALUES (1, '14:30', '22:15:30.6')
INSERT INTO Turnos VALUES (2, '15/03/2024 08:05:09', '08:00')
-- run
SELECT id, CONVERT(VARCHAR(8), inicio, 108), CONVERT(VARCHAR(8), fin, 108), DATEPART(minute, inicio)
FROM Turnos ORDER BY inicio
-- expect
rowset
row 2|08:05:09|08:00:00|5
row 1|14:30:00|22:15:31|30
end
-- run
SELECT inicio FROM Turnos WHERE id = 1
-- expect
rowset
row 1899-12-30 14:30:00
end
-- run
SELECT CONVERT(VARCHAR(8), CAST(CAST('15/03/2024 14:30:15' AS DATETIME) AS TIME), 108)
-- expect
rowset
row 14:30:15
end
-- run
SELECT inicio + 1 FROM Turnos
-- expect
error 206
