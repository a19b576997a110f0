-- CAST and CONVERT of a date to a text type without a style write the date type's own text:
-- DATETIME and SMALLDATETIME in style 0 ('Mar 15 2024 12:00AM': the month's short name in the
-- session language, the day and the hour right-aligned in two places with a blank, no seconds),
-- DATE 'yyyy-mm-dd', TIME(n) 'hh:mi:ss' and DATETIME2(n) 'yyyy-mm-dd hh:mi:ss', each with n
-- digits of a second. A text type too short for it keeps its first characters; CHAR(n) pads to n.
-- run
CREATE TABLE Citas (id INT, momento DATETIME, corto SMALLDATETIME, dia DATE, hora TIME(3), exacto DATETIME2(4))
-- run
INSERT INTO Citas VALUES (1, '05/01/2024 09:05:30', '05/01/2024 21:40', '05/01/2024', '09:05:30.125', '05/01/2024 09:05:30.1234')
INSERT INTO Citas VALUES (2, '15/03/2024 00:00', '15/03/2024 12:00', '15/03/2024', '23:59:59', '15/03/2024 23:59:59')
-- run
SELECT CAST(momento AS VARCHAR(30)), CONVERT(VARCHAR(20), corto), CAST(dia AS VARCHAR(10)), CAST(hora AS VARCHAR(20)), CAST(exacto AS NVARCHAR(30))
FROM Citas ORDER BY id
-- expect
rowset
row Ene  5 2024  9:05AM|Ene  5 2024  9:40PM|2024-01-05|09:05:30.125|2024-01-05 09:05:30.1234
row Mar 15 2024 12:00AM|Mar 15 2024 12:00PM|2024-03-15|23:59:59.000|2024-03-15 23:59:59.0000
end
-- run
SELECT CAST(momento AS VARCHAR(6)), DATALENGTH(CAST(momento AS CHAR(25))), CAST(momento AS VARCHAR) + '.', LEN(CONVERT(NVARCHAR, momento))
FROM Citas WHERE id = 2
-- expect
rowset
row Mar 15|25|Mar 15 2024 12:00AM.|19
end
-- run
SELECT COUNT(*) FROM Citas WHERE CAST(momento AS VARCHAR(11)) = 'Ene  5 2024'
-- expect
rowset
row 1
end
-- run
DECLARE @d DATETIME = '31/12/2024 14:30:59'
SELECT 'Cierre: ' + CONVERT(VARCHAR(30), @d), CAST(CAST(@d AS DATE) AS VARCHAR(12)), CAST(CAST(@d AS TIME(0)) AS VARCHAR(12)), CAST(CAST(@d AS DATETIME2(0)) AS VARCHAR(25))
-- expect
rowset
row Cierre: Dic 31 2024  2:30PM|2024-12-31|14:30:59|2024-12-31 14:30:59
end
