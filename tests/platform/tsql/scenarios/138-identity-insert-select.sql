-- INSERT ... SELECT of several rows numbers each one; @@IDENTITY is the last.
-- run
CREATE TABLE origen (n INT)
-- run
INSERT INTO origen VALUES (5)
-- expect
count 1
-- run
INSERT INTO origen VALUES (6)
-- expect
count 1
-- run
CREATE TABLE t (id INT IDENTITY(1,1), n INT)
-- run
INSERT INTO t (n) SELECT n FROM origen
-- expect
count 2
-- run
SELECT @@IDENTITY
-- expect
rowset
row 2
end
