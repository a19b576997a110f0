-- A text compared with a TIME, DATE, DATETIME2 or SMALLDATETIME operand is converted to that
-- operand's type, as data-type precedence says: '10:30' equals a TIME of 10:30:00, a text with
-- a time compared with a DATE is its day, and a text that is no time is error 241.
-- run
CREATE TABLE Turnos (id INT, hora TIME, dia DATE, alta DATETIME2(3), corto SMALLDATETIME)
-- run
INSERT INTO Turnos VALUES (1, '10:30', '15/03/2024', '15/03/2024 10:20:30.125', '15/03/2024 10:20')
INSERT INTO Turnos VALUES (2, '09:00:00.5', '16/03/2024', '16/03/2024 08:00', '16/03/2024 08:00')
INSERT INTO Turnos VALUES (3, '09:00', '17/03/2024', '17/03/2024 12:00', '17/03/2024 12:00')
-- run
SELECT id FROM Turnos WHERE hora = '10:30'
-- expect
rowset
row 1
end
-- run
SELECT id FROM Turnos WHERE hora > '09:00:00.5'
-- expect
rowset
row 1
end
-- run
SELECT id FROM Turnos WHERE hora BETWEEN '9:00' AND '09:30' ORDER BY id
-- expect
rowset
row 2
row 3
end
-- run
SELECT id FROM Turnos WHERE hora IN ('9:00', '10:30:00') ORDER BY id
-- expect
rowset
row 1
row 3
end
-- run
SELECT id FROM Turnos WHERE '09:00:00.2' < hora ORDER BY id
-- expect
rowset
row 1
row 2
end
-- run
SELECT id FROM Turnos WHERE dia = '15/03/2024 18:00'
-- expect
rowset
row 1
end
-- run
SELECT id FROM Turnos WHERE dia >= '2024-03-16' ORDER BY id
-- expect
rowset
row 2
row 3
end
-- run
SELECT id FROM Turnos WHERE alta = '15/03/2024 10:20:30.125'
-- expect
rowset
row 1
end
-- run
SELECT id FROM Turnos WHERE corto = '16/03/2024 08:00:10'
-- expect
rowset
row 2
end
-- run
SELECT id FROM Turnos WHERE hora = 'las diez'
-- expect
error 241
