-- Numeric functions: LOG is the natural logarithm (or in the base given), SQUARE and ATN2 are
-- floats, DEGREES and RADIANS of an integer are integers (the fraction dropped), STR writes a
-- number right-aligned in a length (rounded to its decimals, fewer when they do not fit, stars
-- when the whole part does not) and ISNUMERIC answers 1 for what converts to a number type.
-- run
SELECT CAST(LOG(10) AS DECIMAL(10, 6)), LOG(1), LOG(8, 2), LOG(100, 10), SQUARE(3), SQUARE(1.5), ATN2(0, 1), DEGREES(PI()), RADIANS(180), DEGREES(1), LOG(NULL)
-- expect
rowset
row 2.302585|0|3|2|9|2.25|0|180|3|57|NULL
end
-- run
SELECT LOG(0)
-- expect
error 3623
-- run
SELECT LOG(-1, 10)
-- expect
error 3623
-- run
SELECT '[' + STR(123.45, 6, 1) + ']', '[' + STR(123.45, 2, 2) + ']', '[' + STR(FLOOR(123.45), 8, 3) + ']', '[' + STR(1223, 2) + ']', '[' + STR(12) + ']', '[' + STR(123.456, 5, 2) + ']', '[' + STR(-1.5, 5, 1) + ']', STR(NULL)
-- expect
rowset
row [ 123.5]|[**]|[ 123.000]|[**]|[        12]|[123.5]|[ -1.5]|NULL
end
-- run
SELECT ISNUMERIC('12'), ISNUMERIC(' 1.5e3 '), ISNUMERIC('$1,000.50'), ISNUMERIC('-'), ISNUMERIC('abc'), ISNUMERIC(''), ISNUMERIC(NULL), ISNUMERIC(12.5), ISNUMERIC('1 2')
-- expect
rowset
row 1|1|1|1|0|0|0|1|0
end
-- run
CREATE TABLE n (id INT, qty INT, price MONEY, txt VARCHAR(10))
-- run
INSERT INTO n VALUES (1, 4, 2.5, '42')
INSERT INTO n VALUES (2, 90, 10, 'n/a')
-- run
SELECT id, SQUARE(qty), RADIANS(qty), STR(price, 6, 2), ISNUMERIC(txt), ISNUMERIC(qty) FROM n ORDER BY id
-- expect
rowset
row 1|16|0|  2.50|1|1
row 2|8100|1| 10.00|0|1
end
