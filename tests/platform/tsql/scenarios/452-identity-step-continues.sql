-- An identity counting by a step answers each value in @@IDENTITY, counts down with a negative
-- step and goes on after the highest value an IDENTITY_INSERT stored.
-- run
CREATE TABLE t (id INT IDENTITY(10,-5), n INT)
-- run
INSERT INTO t (n) VALUES (1)
SELECT @@IDENTITY
-- expect
count 1
rowset
row 10
end
-- run
INSERT INTO t (n) VALUES (2)
SELECT @@IDENTITY, SCOPE_IDENTITY()
-- expect
count 1
rowset
row 5|5
end
-- run
CREATE TABLE u (id INT IDENTITY(1,3) PRIMARY KEY, n INT)
-- run
INSERT INTO u (n) VALUES (1)
INSERT INTO u (n) VALUES (2)
SET IDENTITY_INSERT u ON
INSERT INTO u (id, n) VALUES (20, 3)
SET IDENTITY_INSERT u OFF
INSERT INTO u (n) VALUES (4)
-- run
SELECT id, n FROM u ORDER BY id
-- expect
rowset
row 1|1
row 4|2
row 20|3
row 23|4
end
-- run
SELECT id, n FROM t ORDER BY id DESC
-- expect
rowset
row 10|1
row 5|2
end
