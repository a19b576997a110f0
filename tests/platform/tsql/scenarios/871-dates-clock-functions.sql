-- GETDATE() and GETUTCDATE() are DATETIME values: their milliseconds end in 0, 3 or 7, and a
-- statement sees one value however often it names them. SYSDATETIME() is a DATETIME2(7): seven
-- digits of a second. A DATETIME column's DEFAULT GETDATE() keeps the same steps.
-- run
CREATE TABLE Registro (id INT, alta DATETIME DEFAULT GETDATE())
-- run
INSERT INTO Registro (id) VALUES (1)
INSERT INTO Registro (id) VALUES (2)
-- run
SELECT COUNT(*) FROM Registro WHERE DATEPART(ms, alta) % 10 IN (0, 3, 7) AND alta <= GETDATE()
-- expect
rowset
row 2
end
-- run
SELECT CASE WHEN DATEPART(ms, GETDATE()) % 10 IN (0, 3, 7) THEN 1 ELSE 0 END,
       CASE WHEN DATEPART(ms, GETUTCDATE()) % 10 IN (0, 3, 7) THEN 1 ELSE 0 END,
       CASE WHEN GETDATE() = GETDATE() THEN 1 ELSE 0 END,
       LEN(CONVERT(VARCHAR(30), SYSDATETIME(), 121))
-- expect
rowset
row 1|1|1|27
end
