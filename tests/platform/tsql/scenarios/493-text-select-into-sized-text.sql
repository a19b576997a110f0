-- SELECT ... INTO makes sized text columns of lengths no table had before, in a #temporary
-- table too, and they keep the values' trailing blanks and ignore them in comparisons.
-- run
CREATE TABLE t (id INT, v VARCHAR(6))
-- run
INSERT INTO t VALUES (1, 'ab  ')
-- run
SELECT id, CAST('xyz' AS VARCHAR(17)) AS w, v INTO t2 FROM t
-- run
SELECT id, v, CAST('q' AS VARCHAR(23)) AS u INTO #t3 FROM t2
-- run
SELECT t2.w + '|', t2.v + '|', #t3.v + '|' FROM t2 JOIN #t3 ON t2.v = #t3.v WHERE #t3.u = 'q '
-- expect
rowset
row xyz||ab  ||ab  |
end
