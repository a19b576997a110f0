-- A BIT column takes the words TRUE and FALSE and texts of numbers; any other text is error 245,
-- and a stored text of a number is 1 unless it is 0.
-- run
CREATE TABLE t (id INT, b BIT)
-- run
INSERT INTO t VALUES (1, 'abc')
-- expect
error 245
-- run
INSERT INTO t VALUES (2, ' 2.5 ')
INSERT INTO t VALUES (3, '0')
INSERT INTO t VALUES (4, 'False')
-- run
SELECT id, b FROM t ORDER BY id
-- expect
rowset
row 2|True
row 3|False
row 4|False
end
