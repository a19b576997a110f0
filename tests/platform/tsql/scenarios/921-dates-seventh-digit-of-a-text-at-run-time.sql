-- A text column's value cast or converted to DATETIME2(7) or TIME(7), or stored in a column of
-- those types, keeps its seventh digit of a second, and DATEADD of such a value keeps it too.
-- gap postgres: the engine keeps six digits of a second; a text with a seventh that is not 0 is refused when the statement runs, naming it (0x80040E14, séptimo dígito de segundo)
-- run
CREATE TABLE Crudos (id INT, texto VARCHAR(30), hora VARCHAR(20))
CREATE TABLE Medidas (id INT, momento DATETIME2)
-- run
INSERT INTO Crudos VALUES (1, '2024-03-15 10:20:30.1234567', '10:20:30.7654321')
-- run
SELECT CONVERT(VARCHAR(27), CAST(texto AS DATETIME2(7)), 121), CAST(CONVERT(TIME(7), hora) AS VARCHAR(16)),
       CONVERT(VARCHAR(27), DATEADD(day, 1, CAST(texto AS DATETIME2)), 121)
FROM Crudos
-- expect
rowset
row 2024-03-15 10:20:30.1234567|10:20:30.7654321|2024-03-16 10:20:30.1234567
end
-- run
INSERT INTO Medidas SELECT id, texto FROM Crudos
-- run
SELECT CONVERT(VARCHAR(27), momento, 121) FROM Medidas
-- expect
rowset
row 2024-03-15 10:20:30.1234567
end
