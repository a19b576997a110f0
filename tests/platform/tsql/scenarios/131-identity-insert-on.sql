-- With IDENTITY_INSERT ON an explicit value is stored and the next identity follows the highest.
-- run
CREATE TABLE t (id INT IDENTITY(1,1), n INT)
-- run
SET IDENTITY_INSERT t ON
-- run
INSERT INTO t (id, n) VALUES (100, 1)
-- expect
count 1
-- run
SET IDENTITY_INSERT t OFF
-- run
INSERT INTO t (n) VALUES (2)
-- expect
count 1
-- run
SELECT id FROM t ORDER BY id
-- expect
rowset
row 100
row 101
end
