-- FORMAT of dates: custom patterns (dd, MM, yyyy, HH, mm, ss, dddd and MMMM in the culture's
-- names, quoted and escaped literals) and the standard formats d and D, in Spanish by the
-- session's language and in English when en-US is named.
-- run
CREATE TABLE e (id INT, d DATETIME)
-- run
INSERT INTO e VALUES (1, '15/03/2024 14:05:09')
INSERT INTO e VALUES (2, NULL)
-- run
SELECT FORMAT(d, 'dd/MM/yyyy'), FORMAT(d, 'yyyy-MM-dd HH:mm:ss'), FORMAT(d, 'd'), FORMAT(d, 'D'), FORMAT(d, 'dddd d \de MMMM'), FORMAT(d, 'd/M/yy') FROM e WHERE id = 1
-- expect
rowset
row 15/03/2024|2024-03-15 14:05:09|15/03/2024|viernes, 15 de marzo de 2024|viernes 15 de marzo|15/3/24
end
-- run
SELECT FORMAT(d, 'hh:mm tt', 'en-US'), FORMAT(d, 'MMM d, yyyy', 'en-US'), FORMAT(d, 'd', 'en-US'), FORMAT(d, 'dddd', 'en-US') FROM e WHERE id = 1
-- expect
rowset
row 02:05 PM|Mar 15, 2024|3/15/2024|Friday
end
-- run
SELECT FORMAT(d, 'dd/MM/yyyy') FROM e WHERE id = 2
-- expect
rowset
row NULL
end
-- run
DECLARE @d DATETIME
SET @d = '20240315 10:20'
SELECT FORMAT(@d, 'dd/MM/yyyy HH:mm'), FORMAT(DATEADD(day, 1, @d), 'dddd')
-- expect
rowset
row 15/03/2024 10:20|sábado
end
