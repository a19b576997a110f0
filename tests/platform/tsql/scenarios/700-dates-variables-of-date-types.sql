-- Variables of DATE, TIME(n), SMALLDATETIME and DATETIME2(n) keep what a column of their type
-- keeps: a DATE the day alone, a TIME the time of day to its digits, SMALLDATETIME the minute
-- (29.998 seconds or less down), DATETIME2(n) its n digits; texts are read under DATEFORMAT dmy
-- (year first for DATE and DATETIME2), and each reads back as its type.
-- run
DECLARE @d DATE, @t TIME(0), @s SMALLDATETIME, @m DATETIME2(3)
SET @d = '15/03/2024 18:45'
SET @t = '14:30:15.6'
SET @s = '15/03/2024 10:20:29.998'
SET @m = '15/03/2024 10:20:30.1234567'
SELECT @d, CONVERT(VARCHAR(8), @t, 108), @s, CONVERT(VARCHAR(23), @m, 121)
-- expect
rowset
row 2024-03-15 00:00:00|14:30:16|2024-03-15 10:20:00|2024-03-15 10:20:30.123
end
-- run
DECLARE @t TIME = '08:05'
SELECT @t
-- expect
rowset
row 1899-12-30 08:05:00
end
-- run
DECLARE @d DATE = '2024-03-05', @s SMALLDATETIME = '15/03/2024 10:20:29.999'
SELECT DAY(@d), MONTH(@d), @s
-- expect
rowset
row 5|3|2024-03-15 10:21:00
end
-- run
DECLARE @momento DATETIME = '15/03/2024 18:45:10', @d DATE, @t TIME
SET @d = @momento
SET @t = @momento
SELECT @d, CONVERT(VARCHAR(8), @t, 108)
-- expect
rowset
row 2024-03-15 00:00:00|18:45:10
end
-- run
DECLARE @hoy DATE = GETDATE()
SELECT DATEDIFF(day, @hoy, GETDATE()), DATEPART(hour, CAST(@hoy AS DATETIME))
-- expect
rowset
row 0|0
end
-- run
DECLARE @d DATE = '15/03/2024'
SELECT @d + 1
-- expect
error 206
-- run
DECLARE @t TIME = '10:00'
SELECT @t - 1
-- expect
error 206
-- run
DECLARE @m DATETIME2 = '15/03/2024 10:00'
SELECT @m + 1
-- expect
error 206
-- run
DECLARE @d DATE = '15/03/2024', @t TIME(0) = '10:00'
SELECT DATEADD(day, 20, @d), DATEDIFF(day, @d, '20/03/2024'), CONVERT(VARCHAR(8), DATEADD(minute, 90, @t), 108), DATEDIFF(minute, @t, '11:15')
-- expect
rowset
row 2024-04-04 00:00:00|5|11:30:00|75
end
-- run
DECLARE @s SMALLDATETIME = '15/03/2024 10:00'
SELECT @s + 1
-- expect
rowset
row 2024-03-16 10:00:00
end
-- run
CREATE TABLE Citas (id INT, dia DATE, hora TIME, momento DATETIME)
-- run
INSERT INTO Citas VALUES (1, '15/03/2024', '09:30', '15/03/2024 09:30')
INSERT INTO Citas VALUES (2, '16/03/2024', '17:00', '16/03/2024 17:00')
-- run
DECLARE @d DATE = '15/03/2024 23:00', @t TIME = '12:00'
SELECT id FROM Citas WHERE dia = @d
SELECT id FROM Citas WHERE hora > @t
SELECT id FROM Citas WHERE momento >= @d ORDER BY id
SELECT COUNT(*) FROM Citas WHERE @d = '15/03/2024' AND @t < '12:00:00.5'
-- expect
rowset
row 1
end
rowset
row 2
end
rowset
row 1
row 2
end
rowset
row 2
end
-- run
DECLARE @d DATE, @t TIME(0)
SELECT @d = momento, @t = momento FROM Citas WHERE id = 2
SELECT @d, CONVERT(VARCHAR(8), @t, 108)
-- expect
rowset
row 2024-03-16 00:00:00|17:00:00
end
-- run
DECLARE @d DATE
SET @d = 'mañana'
-- expect
error 241
-- run
DECLARE @s SMALLDATETIME
SET @s = '01/01/2080'
-- expect
error 242
-- run
EXEC sp_executesql N'SELECT id FROM Citas WHERE dia = @dia AND hora < @hora', N'@dia DATE, @hora TIME(0)', @dia = '15/03/2024 20:00', @hora = '10:00'
-- expect
rowset
row 1
end
-- run
EXEC sp_executesql N'SELECT @dia + 1', N'@dia DATE', @dia = '15/03/2024'
-- expect
error 206
