-- SELECT ... INTO a table that exists is error 2714 and leaves the table as it was.
-- run
CREATE TABLE t (id INT)
-- run
INSERT INTO t VALUES (1)
-- run
CREATE TABLE otra (id INT)
-- run
SELECT id INTO otra FROM t
-- expect
error 2714
-- run
SELECT COUNT(*) FROM otra
-- expect
rowset
row 0
end
