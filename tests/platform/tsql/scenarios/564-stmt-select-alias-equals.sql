-- SELECT name = expression names the column as expression AS name does: a bracketed or quoted
-- name too, in a derived table and in ORDER BY; SELECT @v = ... still assigns the variable.
-- run
CREATE TABLE t (id INT, importe INT)
-- run
INSERT INTO t VALUES (1, 10)
INSERT INTO t VALUES (2, 5)
-- run
SELECT [doble importe] FROM (SELECT id, [doble importe] = importe * 2 FROM t) x ORDER BY id
-- expect
rowset
row 20
row 10
end
-- run
SELECT numero = id, 'Importe total' = importe FROM t ORDER BY numero DESC
-- expect
rowset
row 2|5
row 1|10
end
-- run
SELECT total FROM (SELECT total = SUM(importe) FROM t) x
-- expect
rowset
row 15
end
-- run
DECLARE @v INT
SELECT @v = importe FROM t WHERE id = 2
SELECT @v
-- expect
rowset
row 5
end
