-- @@IDENTITY is NULL after an insert into a table without identity.
-- run
CREATE TABLE t (n INT)
-- run
INSERT INTO t VALUES (1)
-- expect
count 1
-- run
SELECT @@IDENTITY
-- expect
rowset
row NULL
end
