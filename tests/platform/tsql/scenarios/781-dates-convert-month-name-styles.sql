-- CONVERT writes a date in styles 0 and 100 ('Mar 15 2024  2:30PM'), 9 and 109 (seconds and
-- milliseconds after a colon), 6 and 106 ('15 Mar 24', '15 Mar 2024'), 7 and 107 ('Mar 15, 24',
-- 'Mar 15, 2024'), 13 and 113 ('15 Mar 2024 14:30:15:123') and 14 and 114 ('14:30:15:123');
-- the month is the session language's short name (SET LANGUAGE Español: Ene, Abr, Ago, Dic).
-- run
CREATE TABLE Avisos (id INT, momento DATETIME)
-- run
INSERT INTO Avisos VALUES (1, '05/01/2024 09:05:30')
INSERT INTO Avisos VALUES (2, '15/04/2024 14:30:15.123')
INSERT INTO Avisos VALUES (3, '01/08/2024 00:00')
INSERT INTO Avisos VALUES (4, '31/12/2024 12:59:59.997')
-- run
SELECT CONVERT(VARCHAR(20), momento, 100), CONVERT(VARCHAR(20), momento, 0), CONVERT(VARCHAR(11), momento, 106), CONVERT(VARCHAR(9), momento, 6), CONVERT(VARCHAR(12), momento, 107), CONVERT(VARCHAR(10), momento, 7)
FROM Avisos ORDER BY id
-- expect
rowset
row Ene  5 2024  9:05AM|Ene  5 2024  9:05AM|05 Ene 2024|05 Ene 24|Ene 05, 2024|Ene 05, 24
row Abr 15 2024  2:30PM|Abr 15 2024  2:30PM|15 Abr 2024|15 Abr 24|Abr 15, 2024|Abr 15, 24
row Ago  1 2024 12:00AM|Ago  1 2024 12:00AM|01 Ago 2024|01 Ago 24|Ago 01, 2024|Ago 01, 24
row Dic 31 2024 12:59PM|Dic 31 2024 12:59PM|31 Dic 2024|31 Dic 24|Dic 31, 2024|Dic 31, 24
end
-- run
SELECT CONVERT(VARCHAR(26), momento, 109), CONVERT(VARCHAR(26), momento, 9), CONVERT(VARCHAR(24), momento, 113), CONVERT(VARCHAR(12), momento, 114), CONVERT(VARCHAR(12), momento, 14)
FROM Avisos ORDER BY id
-- expect
rowset
row Ene  5 2024  9:05:30:000AM|Ene  5 2024  9:05:30:000AM|05 Ene 2024 09:05:30:000|09:05:30:000|09:05:30:000
row Abr 15 2024  2:30:15:123PM|Abr 15 2024  2:30:15:123PM|15 Abr 2024 14:30:15:123|14:30:15:123|14:30:15:123
row Ago  1 2024 12:00:00:000AM|Ago  1 2024 12:00:00:000AM|01 Ago 2024 00:00:00:000|00:00:00:000|00:00:00:000
row Dic 31 2024 12:59:59:997PM|Dic 31 2024 12:59:59:997PM|31 Dic 2024 12:59:59:997|12:59:59:997|12:59:59:997
end
-- run
SELECT CONVERT(VARCHAR(20), CAST('15/03/2024 18:45:40' AS SMALLDATETIME), 100), CONVERT(VARCHAR(11), CAST('07/02/2024' AS DATE), 106), CONVERT(VARCHAR(12), CAST('07/02/2024 10:00' AS DATETIME2), 107)
-- expect
rowset
row Mar 15 2024  6:46PM|07 Feb 2024|Feb 07, 2024
end
-- run
SELECT CONVERT(VARCHAR(6), momento, 106) + '.' FROM Avisos WHERE id = 3
-- expect
rowset
row 01 Ago.
end
