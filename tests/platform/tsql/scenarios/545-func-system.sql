-- System functions: NEWID is a new uniqueidentifier each call (36 characters as a text),
-- IIF chooses as CASE does (an unknown condition takes the second value), USER_NAME of the
-- database owner is dbo, HOST_NAME and APP_NAME name the computer and the program,
-- COL_LENGTH is a column's size in bytes (NULL for no such column) and DATEFROMPARTS makes a
-- date (NULL from a NULL part).
-- run
SELECT LEN(CAST(NEWID() AS VARCHAR(36))), CASE WHEN NEWID() = NEWID() THEN 0 ELSE 1 END, IIF(1 < 2, 'yes', 'no'), IIF(NULL = 1, 'a', 'b'), USER_NAME(), CASE WHEN LEN(HOST_NAME()) > 0 THEN 1 ELSE 0 END
-- expect
rowset
row 36|1|yes|b|dbo|1
end
-- run
CREATE TABLE c (id INT, name VARCHAR(40), n NVARCHAR(10), d DATETIME, k UNIQUEIDENTIFIER)
-- run
INSERT INTO c VALUES (1, 'a', 'b', NULL, NEWID())
INSERT INTO c VALUES (2, 'a', 'b', NULL, NEWID())
-- run
SELECT COL_LENGTH('c', 'name'), COL_LENGTH('c', 'n'), COL_LENGTH('c', 'id'), COL_LENGTH('c', 'd'), COL_LENGTH('c', 'nope'), COL_LENGTH('nope', 'id')
-- expect
rowset
row 40|20|4|8|NULL|NULL
end
-- run
SELECT COUNT(DISTINCT k), SUM(IIF(id > 1, 10, 1)) FROM c
-- expect
rowset
row 2|11
end
-- run
SELECT DAY(DATEFROMPARTS(2024, 2, 29)), DATEDIFF(day, DATEFROMPARTS(2024, 1, 1), DATEFROMPARTS(2024, 3, 1)), CASE WHEN DATEFROMPARTS(NULL, 1, 1) IS NULL THEN 1 ELSE 0 END
-- expect
rowset
row 29|60|1
end
-- run
SELECT DATEFROMPARTS(2023, 2, 29)
-- expect
error 289
