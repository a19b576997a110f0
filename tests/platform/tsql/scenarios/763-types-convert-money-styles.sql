-- CONVERT of MONEY to text takes SQL Server's money styles: 0 (or none) two places, 1 thousands
-- separated by commas with two places, 2 four places; the style of an integer or a DECIMAL
-- changes nothing; a date keeps its date styles.
-- run
CREATE TABLE importes (id INT, importe MONEY, fecha DATETIME)
INSERT INTO importes VALUES (1, 1234.5, '15/03/2024')
INSERT INTO importes VALUES (2, -1234567.125, '16/03/2024')
-- run
SELECT id, CONVERT(VARCHAR(20), importe, 1), CONVERT(VARCHAR(20), importe, 2), CONVERT(VARCHAR(20), importe, 0), CONVERT(VARCHAR(20), importe), CONVERT(VARCHAR(10), fecha, 1) FROM importes ORDER BY id
-- expect
rowset
row 1|1,234.50|1234.5000|1234.50|1234.50|03/15/24
row 2|-1,234,567.13|-1234567.1250|-1234567.13|-1234567.13|03/16/24
end
-- run
SELECT CONVERT(VARCHAR(10), 12.50, 1), CONVERT(VARCHAR(10), 42, 2), 'Total: ' + CONVERT(VARCHAR(20), CAST(99999.999 AS MONEY), 1)
-- expect
rowset
row 12.50|42|Total: 100,000.00
end
