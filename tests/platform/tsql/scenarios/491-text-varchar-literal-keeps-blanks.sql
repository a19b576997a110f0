-- A VARCHAR value stored from a literal keeps its trailing blanks (LEN leaves them out,
-- DATALENGTH and "+" count them), by INSERT and UPDATE alike, and still equals the text
-- without them; a literal compared with it may have blanks of its own.
-- run
CREATE TABLE t (id INT, v VARCHAR(10), w VARCHAR(4))
-- run
INSERT INTO t VALUES (1, 'ab  ', 'x')
INSERT INTO t (id, v) VALUES (2, 'cd')
UPDATE t SET v = 'cd ', w = 'y  ' WHERE id = 2
-- run
SELECT id, LEN(v), DATALENGTH(v), v + 'c', DATALENGTH(w) FROM t ORDER BY id
-- expect
rowset
row 1|2|4|ab  c|1
row 2|2|3|cd c|3
end
-- run
SELECT id FROM t WHERE v = 'ab' OR v = 'CD    '
-- expect
rowset
row 1
row 2
end
-- run
SELECT COUNT(*) FROM t WHERE v = 'ab   ' AND 'ab' = 'ab  '
-- expect
rowset
row 1
end
-- run
INSERT INTO t (id, w) VALUES (3, 'abcde')
-- expect
error 8152
