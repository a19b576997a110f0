-- Texts joined by "+" that differ only in trailing blanks are one value for DISTINCT and
-- UNION.
-- run
CREATE TABLE t (id INT, v VARCHAR(10))
-- run
INSERT INTO t VALUES (1, 'ab')
INSERT INTO t VALUES (2, 'AB  ')
-- run
SELECT COUNT(*) FROM (SELECT v + ' ' AS j FROM t WHERE id = 1 UNION SELECT v + 'x' FROM t WHERE id = 3 UNION SELECT v + ' ' FROM t WHERE id = 2) x
-- expect
rowset
row 1
end
-- run
SELECT COUNT(DISTINCT v + ' ') FROM t
-- expect
rowset
row 1
end
