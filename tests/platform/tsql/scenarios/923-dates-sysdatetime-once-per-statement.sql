-- SYSDATETIME(), as GETDATE(), is read once for a statement: every row of a query, and every row
-- an INSERT ... SELECT stores, sees the same value.
-- run
CREATE TABLE Serie (n INT)
CREATE TABLE Marcas (n INT, momento DATETIME2)
-- run
INSERT INTO Serie VALUES (1)
INSERT INTO Serie VALUES (2)
INSERT INTO Serie VALUES (3)
INSERT INTO Serie VALUES (4)
INSERT INTO Serie VALUES (5)
INSERT INTO Serie VALUES (6)
INSERT INTO Serie VALUES (7)
INSERT INTO Serie VALUES (8)
INSERT INTO Serie VALUES (9)
INSERT INTO Serie VALUES (10)
-- run
SELECT COUNT(DISTINCT CONVERT(VARCHAR(27), SYSDATETIME(), 121)), MIN(CASE WHEN SYSDATETIME() = SYSDATETIME() THEN 1 ELSE 0 END), COUNT(*)
FROM Serie a CROSS JOIN Serie b CROSS JOIN Serie c
-- expect
rowset
row 1|1|1000
end
-- run
INSERT INTO Marcas SELECT a.n, SYSDATETIME() FROM Serie a CROSS JOIN Serie b CROSS JOIN Serie c
-- run
SELECT COUNT(DISTINCT momento), COUNT(*) FROM Marcas
-- expect
rowset
row 1|1000
end
