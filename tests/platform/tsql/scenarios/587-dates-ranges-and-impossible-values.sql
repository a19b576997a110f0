-- SMALLDATETIME runs from 1900-01-01 to 2079-06-06 23:59 (242 outside, from a text or a
-- DATETIME, stored or cast); an impossible day is 241 for DATE and DATETIME2, 242 for DATETIME.
-- run
SELECT CAST('06/06/2079 23:59' AS SMALLDATETIME), CAST('01/01/1900' AS SMALLDATETIME)
-- expect
rowset
row 2079-06-06 23:59:00|1900-01-01 00:00:00
end
-- run
SELECT CAST('31/12/1899' AS SMALLDATETIME)
-- expect
error 242
-- run
SELECT CAST('07/06/2079' AS SMALLDATETIME)
-- expect
error 242
-- run
CREATE TABLE Marcas (m SMALLDATETIME, d DATE)
-- run
INSERT INTO Marcas (m) VALUES ('01/01/1800')
-- expect
error 242
-- run
INSERT INTO Marcas (m) SELECT CAST('01/01/1800' AS DATETIME)
-- expect
error 242
-- run
SELECT COUNT(*) FROM Marcas
-- expect
rowset
row 0
end
-- run
SELECT CAST('30/02/2024' AS DATE)
-- expect
error 241
-- run
INSERT INTO Marcas (d) VALUES ('30/02/2024')
-- expect
error 241
-- run
SELECT CAST('30/02/2024' AS DATETIME)
-- expect
error 242
