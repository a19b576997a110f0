-- A BIT column takes 'TRUE' and 'FALSE' and answers Booleans.
-- run
CREATE TABLE t (id INT, b BIT)
-- run
INSERT INTO t VALUES (1, 'TRUE')
-- run
INSERT INTO t VALUES (2, 'FALSE')
-- run
SELECT b FROM t ORDER BY id
-- expect
rowset
row True
row False
end
