-- A subquery that answers several rows where an UPDATE or a comparison needs one value is error 512, and the UPDATE changes nothing.
-- run
CREATE TABLE t (id INT, n INT)
-- run
INSERT INTO t VALUES (1, 10)
-- run
INSERT INTO t VALUES (1, 20)
-- run
CREATE TABLE a (id INT, c INT)
-- run
INSERT INTO a VALUES (1, 0)
-- run
UPDATE a SET c = (SELECT n FROM t WHERE t.id = a.id)
-- expect
error 512
-- run
SELECT c FROM a
-- expect
rowset
row 0
end
-- run
SELECT COUNT(*) FROM a WHERE c < (SELECT n FROM t WHERE t.id = a.id)
-- expect
error 512
