-- FORMAT of numbers under the session language's culture (es-ES: "." groups thousands, ","
-- before the decimals) or the one named: N, F, C, P and D with their precision, custom patterns
-- of 0, # and ",", NULL for NULL. A text to format is error 8116.
-- run
SELECT FORMAT(1234.5, 'N2'), FORMAT(1234.5, 'N'), FORMAT(1234567.891, 'N0'), FORMAT(0.5, 'P'), FORMAT(1234.5, 'C'), FORMAT(-1234.5, 'N1'), FORMAT(1234.5, 'F3')
-- expect
rowset
row 1.234,50|1.234,50|1.234.568|50,00 %|1.234,50 €|-1.234,5|1234,500
end
-- run
SELECT FORMAT(5, '000'), FORMAT(1234.5, '#,##0.00'), FORMAT(0.5, '#.##'), FORMAT(42, 'D5'), FORMAT(1234.5, 'N2', 'en-US'), FORMAT(-5, 'C', 'en-US'), FORMAT(NULL, 'N2'), FORMAT(0.256, '0.0%')
-- expect
rowset
row 005|1.234,50|,5|00042|1,234.50|($5.00)|NULL|25,6%
end
-- run
SELECT FORMAT('1234', 'N2')
-- expect
error 8116
-- run
CREATE TABLE p (id INT, price MONEY, qty INT)
-- run
INSERT INTO p VALUES (1, 1500.75, 3)
INSERT INTO p VALUES (2, NULL, 12)
-- run
SELECT id, FORMAT(price, 'N2'), FORMAT(qty, 'D3'), FORMAT(price * qty, '#,##0') FROM p ORDER BY id
-- expect
rowset
row 1|1.500,75|003|4.502
row 2|NULL|012|NULL
end
-- run
DECLARE @n MONEY
DECLARE @i INT
SET @n = 1234.5
SET @i = 7
SELECT FORMAT(@n, 'N2'), FORMAT(@i, 'D3'), '[' + STR(@n, 8, 1) + ']'
-- expect
rowset
row 1.234,50|007|[  1234.5]
end
