-- SCOPE_IDENTITY() answers the last identity of the session's inserts.
-- run
CREATE TABLE t (id INT IDENTITY(1,1), n INT)
-- run
INSERT INTO t (n) VALUES (1)
-- expect
count 1
-- run
SELECT SCOPE_IDENTITY(), @@IDENTITY
-- expect
rowset
row 1|1
end
