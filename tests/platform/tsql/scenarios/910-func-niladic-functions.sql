-- CURRENT_TIMESTAMP is GETDATE() (the local time as a DATETIME), in a query and as a column's
-- DEFAULT; CURRENT_USER and SESSION_USER are USER_NAME(), the database user dbo.
-- run
CREATE TABLE registro (id INT, alta DATETIME DEFAULT CURRENT_TIMESTAMP, quien VARCHAR(30) DEFAULT CURRENT_USER)
INSERT INTO registro (id) VALUES (1)
-- run
SELECT quien, CASE WHEN ABS(DATEDIFF(second, alta, GETDATE())) < 60 THEN 1 ELSE 0 END FROM registro
-- expect
rowset
row dbo|1
end
-- run
SELECT CURRENT_USER, SESSION_USER, USER_NAME(), YEAR(CURRENT_TIMESTAMP) - YEAR(GETDATE()),
       CASE WHEN ABS(DATEDIFF(second, CURRENT_TIMESTAMP, GETDATE())) < 60 THEN 1 ELSE 0 END
-- expect
rowset
row dbo|dbo|dbo|0|1
end
-- run
DECLARE @ahora DATETIME
SET @ahora = CURRENT_TIMESTAMP
SELECT DATEDIFF(day, @ahora, GETDATE())
-- expect
rowset
row 0
end
