-- A DATETIME2(n) or TIME(n) variable keeps the digits of a second a column of its type keeps,
-- whether it is given a text, a column's value or another variable's; assigned to a type of
-- fewer digits the value is rounded half up as SQL Server rounds it.
-- run
CREATE TABLE Lecturas (id INT, momento DATETIME2(6), hora TIME(5))
-- run
INSERT INTO Lecturas VALUES (1, '15/03/2024 10:20:30.123456', '10:20:30.98765')
-- run
DECLARE @m DATETIME2(6) = '15/03/2024 10:20:30.654321'
DECLARE @h TIME(6)
DECLARE @c DATETIME2(4)
DECLARE @t TIME
SELECT @h = hora, @c = momento FROM Lecturas WHERE id = 1
SET @t = @h
SELECT CONVERT(VARCHAR(26), @m, 121), CAST(@h AS VARCHAR(16)), CONVERT(VARCHAR(24), @c, 121), CAST(@t AS VARCHAR(16))
-- expect
rowset
row 2024-03-15 10:20:30.654321|10:20:30.987650|2024-03-15 10:20:30.1235|10:20:30.9876500
end
-- run
DECLARE @m DATETIME2(6)
SELECT @m = momento FROM Lecturas
SELECT COUNT(*) FROM Lecturas WHERE momento = @m
-- expect
rowset
row 1
end
