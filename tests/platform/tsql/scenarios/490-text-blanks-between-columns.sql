-- Texts that reached a VARCHAR column with trailing blanks (by INSERT ... SELECT, "+" or an
-- UPDATE from another column) keep them, and compare, join, group and count as distinct the
-- same as the text without them; a unique index holds them as one value.
-- run
CREATE TABLE a (id INT, v VARCHAR(10))
-- run
CREATE TABLE b (id INT, v VARCHAR(10))
-- run
INSERT INTO a VALUES (1, 'ab')
INSERT INTO a VALUES (2, 'cd')
INSERT INTO b SELECT id, v + '  ' FROM a
UPDATE a SET v = v + ' ' WHERE id = 2
-- run
SELECT a.id, DATALENGTH(a.v), DATALENGTH(b.v), '[' + b.v + ']' FROM a JOIN b ON a.v = b.v ORDER BY a.id
-- expect
rowset
row 1|2|4|[ab  ]
row 2|3|4|[cd  ]
end
-- run
SELECT COUNT(*) FROM a, b WHERE a.v = b.v AND a.v >= b.v AND NOT a.v <> b.v
-- expect
rowset
row 2
end
-- run
SELECT x.v, COUNT(*) FROM (SELECT v FROM a UNION ALL SELECT v FROM b) x GROUP BY x.v ORDER BY x.v
-- expect
rowset
row {any}|2
row {any}|2
end
-- run
SELECT COUNT(DISTINCT v) FROM (SELECT v FROM a UNION ALL SELECT v FROM b) x
-- expect
rowset
row 2
end
-- run
SELECT COUNT(*) FROM (SELECT v FROM a UNION SELECT v FROM b) x
-- expect
rowset
row 2
end
-- run
CREATE UNIQUE INDEX ix_b_v ON b (v)
-- run
INSERT INTO b SELECT 3, v FROM a WHERE id = 1
-- expect
error 2601
-- run
SELECT id FROM b WHERE v IN (SELECT v FROM a WHERE id = 2)
-- expect
rowset
row 2
end
