-- A rolled-back insert still consumes its identity value.
-- run
CREATE TABLE t (id INT IDENTITY(1,1), n INT)
-- run
INSERT INTO t (n) VALUES (1)
-- expect
count 1
-- run
BEGIN TRAN
-- run
INSERT INTO t (n) VALUES (2)
-- expect
count 1
-- run
ROLLBACK TRAN
-- run
INSERT INTO t (n) VALUES (3)
-- expect
count 1
-- run
SELECT id FROM t ORDER BY id
-- expect
rowset
row 1
row 3
end
