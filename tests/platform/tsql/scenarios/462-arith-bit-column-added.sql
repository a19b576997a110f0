-- A BIT column added to a table already read answers Booleans, beside the table's SMALLINT
-- numbers, alone and joined with another table's BIT column.
-- run
CREATE TABLE t (id INT, n SMALLINT)
-- run
INSERT INTO t VALUES (1, 4)
-- run
SELECT id, n FROM t
-- expect
rowset
row 1|4
end
-- run
ALTER TABLE t ADD b BIT
-- run
UPDATE t SET b = 1
-- run
SELECT n, b FROM t
-- expect
rowset
row 4|True
end
-- run
CREATE TABLE u (id INT, f BIT)
-- run
INSERT INTO u VALUES (1, 0)
-- run
SELECT t.n, u.f, t.b FROM t JOIN u ON u.id = t.id
-- expect
rowset
row 4|False|True
end
