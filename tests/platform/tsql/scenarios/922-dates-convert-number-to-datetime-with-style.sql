-- A number converted to DATETIME or SMALLDATETIME is the date that many days after 1900-01-01,
-- its fraction the time of day, whatever the style CONVERT is given (a style tells how a text is
-- read): INT, DECIMAL and FLOAT columns, variables and literals alike. The other date types take
-- no number (529), with a style or without.
-- run
CREATE TABLE Vencimientos (id INT, enteros INT, exacto DECIMAL(10, 2), dias FLOAT, texto VARCHAR(20))
-- run
INSERT INTO Vencimientos VALUES (1, 45366, 45366.5, 45366.75, '17/03/2024')
-- run
SELECT CONVERT(DATETIME, enteros, 103), CONVERT(DATETIME, exacto, 120), CONVERT(DATETIME, dias, 101),
       CONVERT(SMALLDATETIME, dias, 103), CONVERT(DATETIME, texto, 103), CONVERT(DATETIME, enteros)
FROM Vencimientos
-- expect
rowset
row 2024-03-17 00:00:00|2024-03-17 12:00:00|2024-03-17 18:00:00|2024-03-17 18:00:00|2024-03-17 00:00:00|2024-03-17 00:00:00
end
-- run
DECLARE @i INT = 2
DECLARE @d DECIMAL(10, 4) = 45366.25
DECLARE @f FLOAT = -0.25
SELECT CONVERT(DATETIME, @i, 103), CONVERT(DATETIME, @d, 112), CONVERT(DATETIME, @f, 120),
       CONVERT(DATETIME, 45366, 103), CONVERT(SMALLDATETIME, 1.5, 101), CONVERT(DATETIME, 45366.75)
-- expect
rowset
row 1900-01-03 00:00:00|2024-03-17 06:00:00|1899-12-31 18:00:00|2024-03-17 00:00:00|1900-01-02 12:00:00|2024-03-17 18:00:00
end
-- run
SELECT CONVERT(DATE, 45366, 103)
-- expect
error 529
