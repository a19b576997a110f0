-- CHAR(n) values stored by INSERT or UPDATE keep their blanks for "+", LEN drops them, and
-- comparisons still ignore them; DATALENGTH counts a text's characters and a number's bytes.
-- run
CREATE TABLE t (id INT, c CHAR(4), v VARCHAR(6))
-- run
INSERT INTO t VALUES (1, 'ab', 'x')
INSERT INTO t (id, c) VALUES (2, 'abcd')
UPDATE t SET c = 'z' WHERE id = 2
-- run
SELECT id, c + '|', LEN(c), DATALENGTH(c), DATALENGTH(v) FROM t WHERE c = 'ab'
-- expect
rowset
row 1|ab  ||2|4|1
end
-- run
SELECT '[' + c + ']' FROM t WHERE c = 'Z   '
-- expect
rowset
row [z   ]
end
-- run
SELECT DATALENGTH(NULL), DATALENGTH(12), DATALENGTH('abc'), DATALENGTH(v) FROM t WHERE id = 2
-- expect
rowset
row NULL|4|3|NULL
end
