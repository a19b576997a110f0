-- Variables as the values of an INSERT; the count of the INSERT reaches the caller.
-- run
CREATE TABLE c (id INT, nombre NVARCHAR(20), alta DATETIME)
-- run
DECLARE @id INT, @nombre NVARCHAR(20), @alta DATETIME SET @id = 7 SET @nombre = N'Iñigo' SET @alta = '15/03/2024' INSERT INTO c (id, nombre, alta) VALUES (@id, @nombre, @alta)
-- expect
count 1
-- run
SELECT id, nombre, alta FROM c
-- expect
rowset
row 7|Iñigo|2024-03-15 00:00:00
end
